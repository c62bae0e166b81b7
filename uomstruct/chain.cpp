#include "uomstruct/chain.h"

#include <cassert>
#include <cstring>

#include "catalogue/class_table.h"
#include "catalogue/units.h"
#include "support/numbers.h"

namespace uom {

namespace {

enum BasisRow { BASIS_MOLE, BASIS_MOLAR, BASIS_MASS, BASIS_LIQ_VOL, BASIS_VAP_VOL, BASIS_ACT_VOL };
struct BasisRule {
    NamedUnit basis;
    int32_t classId;
};
const BasisRule basisRules[] = {
    {&NamedUnits::UOM_BASMOLE, CLASS_MOLE},    {&NamedUnits::UOM_BASMOLAR, CLASS_MOLAR},
    {&NamedUnits::UOM_BASMASS, CLASS_MASS},    {&NamedUnits::UOM_BASLIQV, CLASS_LIQ_VOL},
    {&NamedUnits::UOM_BASVAPV, CLASS_VAP_VOL}, {&NamedUnits::UOM_BASACTV, CLASS_ACT_VOL},
};

// A chain in the making.
struct Builder {
    NodePool *pool = nullptr; // where the nodes come from, null for the heap
    UomStruct head = nullptr;
    UomStruct tail = nullptr;
    int32_t pendingClass = CLASS_NONE; // replaces the class of the next component, of whatever class that is
    bool complete = true;              // no node is missing for want of memory
};

UomStruct newNode(NodePool *pool) {
    if (!pool)
        return mem_New<UomStructNode>();
    assert(pool->used < POOL_NODES);
    UomStruct node = &pool->nodes[pool->used++];
    *node = {};
    return node;
}

// A node behind the tail; null, and the chain stays shorter, when memory is exhausted.
UomStruct append(Builder &builder) {
    UomStruct node = newNode(builder.pool);
    if (!node) {
        builder.complete = false;
        return nullptr;
    }
    (builder.tail ? builder.tail->next : builder.head) = node;
    builder.tail = node;
    return node;
}

void appendSimple(Builder &builder, int32_t classId, int32_t exponent, int32_t unit) {
    UomStruct node = append(builder);
    if (!node)
        return;
    node->classId = node->baseClass = classId;
    node->exponent = node->baseExponent = exponent;
    node->unit = unit;
}

void appendComposite(const Catalogue &catalogue, Builder &builder, const UomClassRow &row, int32_t classId,
                     int32_t exponent, int32_t basis) {
    for (int32_t slot = 0; slot < COMPOSITE_SLOTS && row.baseClass[slot] != 0; ++slot) {
        UomStruct node = append(builder);
        if (!node)
            continue;
        node->tag = TAG_COMPONENT + slot;
        node->classId = classId;
        node->exponent = exponent;
        node->baseExponent = num_Multiply(row.baseExponent[slot], exponent);
        node->baseClass = builder.pendingClass > 0 ? builder.pendingClass : row.baseClass[slot];
        builder.pendingClass = CLASS_NONE;
        if (basis > NO_UNIT && node->baseClass == CLASS_BASIS) {
            node->unit = basis;
            builder.pendingClass = uom_ClassFromBasis(catalogue, basis);
            basis = NO_UNIT;
        }
    }
}

const UomClassRow *compositeRow(const Catalogue &catalogue, int32_t classId) {
    const UomClassRow *row = class_ValidRow(catalogue, classId);
    return row && class_IsComposite(*row) ? row : nullptr;
}

// Reads and writes one field of up to n nodes.
void readField(UomStruct chain, int32_t n, int32_t *out, int32_t UomStructNode::*field) {
    if (!out || n < 1)
        return;
    std::memset(out, 0, static_cast<size_t>(n) * sizeof *out);
    for (int32_t i = 0; chain && i < n; chain = chain->next, ++i)
        out[i] = chain->*field;
}

void writeField(UomStruct chain, int32_t n, const int32_t *values, int32_t UomStructNode::*field) {
    for (int32_t i = 0; values && chain && i < n; chain = chain->next, ++i)
        chain->*field = values[i];
}

// The node in front of another; null for the head, and for one that is not in the chain.
UomStruct before(UomStruct chain, UomStruct node) {
    while (chain && chain->next != node)
        chain = chain->next;
    return chain;
}

} // namespace

int32_t uom_ClassFromBasis(const Catalogue &catalogue, int32_t basis) {
    for (const BasisRule &rule : basisRules)
        if (basis > NO_UNIT && basis == catalogue.named.*rule.basis)
            return rule.classId;
    return CLASS_NONE;
}

int32_t uom_BasisFromClass(const Catalogue &catalogue, int32_t classId) {
    for (const BasisRule &rule : basisRules)
        if (classId == rule.classId)
            return catalogue.named.*rule.basis;
    return NO_UNIT;
}

static BasisClass basisOf(const Catalogue &catalogue, BasisRow row) {
    return {catalogue.named.*basisRules[row].basis, basisRules[row].classId};
}

BasisClass chain_MoleBasis(const Catalogue &catalogue) {
    return basisOf(catalogue, catalogue.modes.moleQuantity != 0 ? BASIS_MOLE : BASIS_MOLAR);
}

BasisClass chain_VolumeBasis(const Catalogue &catalogue) {
    const bool actual = catalogue.modes.kesta > 0 || catalogue.modes.vel2go > 0;
    return basisOf(catalogue, actual ? BASIS_ACT_VOL : BASIS_LIQ_VOL);
}

bool chain_IsVolumeBasis(const Catalogue &catalogue, int32_t basis) {
    const int32_t classId = uom_ClassFromBasis(catalogue, basis);
    return classId >= CLASS_LIQ_VOL && classId <= CLASS_ACT_VOL;
}

UomStruct chain_OfClass(const Catalogue &catalogue, int32_t classId) {
    const int32_t exponent = 1;
    UomStruct chain;
    chain_Build(catalogue, &chain, 1, &classId, &exponent, nullptr);
    return chain;
}

UomStruct chain_OfClassIn(NodePool &pool, const Catalogue &catalogue, int32_t classId) {
    const int32_t exponent = 1;
    return chain_BuildIn(pool, catalogue, 1, &classId, &exponent, nullptr);
}

UomStruct chain_MatchingClose(UomStruct open) {
    int32_t depth = 0;
    for (UomStruct node = open; node; node = node->next) {
        if (node->classId == CLASS_OPEN)
            ++depth;
        else if (node->classId == CLASS_CLOSE && --depth == 0)
            return node;
    }
    return nullptr;
}

ClosingNodes::ClosingNodes(UomStruct chain) {
    for (const UomStructNode *node = chain; node; node = node->next)
        count += node->classId == CLASS_OPEN;
    if (count > LOCAL)
        groups = mem_NewArray<Group>(count);
    size_t place = 0;
    size_t innermost = NONE;
    for (const UomStructNode *node = chain; groups && node; node = node->next) {
        if (node->classId == CLASS_OPEN) {
            groups[place] = {node, nullptr, innermost};
            innermost = place++;
        } else if (node->classId == CLASS_CLOSE && innermost != NONE) {
            groups[innermost].close = node;
            innermost = groups[innermost].around;
        }
    }
}

const UomStructNode *ClosingNodes::take(UomStruct open) {
    if (!groups)
        return chain_MatchingClose(open);
    while (groups[next].open != open)
        ++next;
    return groups[next].close;
}

void chain_SetUnit(const Catalogue &catalogue, UomStruct node, int32_t unit) {
    const UomUnit *record = unit_Record(catalogue, unit);
    node->unit = unit;
    node->unitStyle = record ? record->multiplierStyle : 0;
}

static Builder build(NodePool *pool, const Catalogue &catalogue, int32_t count, const int32_t *classes,
                     const int32_t *exponents, const int32_t *units) {
    Builder builder;
    builder.pool = pool;
    for (int32_t i = 0; classes && exponents && i < count; ++i) {
        const int32_t unit = units ? units[i] : NO_UNIT;
        const UomClassRow *row = compositeRow(catalogue, classes[i]);
        if (row)
            appendComposite(catalogue, builder, *row, classes[i], exponents[i], unit);
        else
            appendSimple(builder, classes[i], exponents[i], unit);
    }
    return builder;
}

UomStruct uom_BuildStruct(const Catalogue &catalogue, int32_t count, const int32_t *classes, const int32_t *exponents,
                          const int32_t *units) {
    return build(nullptr, catalogue, count, classes, exponents, units).head;
}

bool chain_Build(const Catalogue &catalogue, UomStruct *out, int32_t count, const int32_t *classes,
                 const int32_t *exponents, const int32_t *units) {
    Builder builder = build(nullptr, catalogue, count, classes, exponents, units);
    if (!builder.complete)
        chain_Free(&builder.head);
    *out = builder.head;
    return builder.complete;
}

UomStruct uom_CreateStruct(const Catalogue &catalogue, int32_t classId, int32_t exponent, const int32_t *units) {
    if (!class_IsValid(catalogue, classId))
        return nullptr;
    UomStruct chain;
    chain_Build(catalogue, &chain, 1, &classId, &exponent, nullptr);
    const int32_t rowLength = uom_GetUnitMax(catalogue, classId);
    for (int32_t slate = 0; units && slate < 3 && slate <= catalogue.slateIndex.si - catalogue.slateIndex.english;
         ++slate) {
        UomStruct node = chain;
        for (int32_t i = 0; node && i < rowLength; node = node->next, ++i)
            node->slateUnit[slate] = units[slate * rowLength + i];
    }
    return chain;
}

void uom_DecodeStruct(const Catalogue &catalogue, UomStruct chain, int32_t n, int32_t *classes, int32_t *exponents) {
    if (!classes || !exponents || n < 1)
        return;
    std::memset(classes, 0, static_cast<size_t>(n) * sizeof *classes);
    std::memset(exponents, 0, static_cast<size_t>(n) * sizeof *exponents);
    for (int32_t i = 0; chain && i < n; chain = chain->next, ++i) {
        const bool simple = !compositeRow(catalogue, chain->classId);
        if (!simple && chain->tag != TAG_COMPONENT)
            continue;
        classes[i] = chain->classId;
        exponents[i] = simple ? chain->baseExponent : chain->exponent;
    }
}

static Builder copy(NodePool *pool, UomStruct chain) {
    Builder builder;
    builder.pool = pool;
    for (; chain && builder.complete; chain = chain->next) {
        UomStruct node = append(builder);
        if (!node)
            break;
        *node = *chain;
        node->next = nullptr;
    }
    return builder;
}

UomStruct chain_Copy(UomStruct chain) {
    Builder builder = copy(nullptr, chain);
    if (!builder.complete)
        chain_Free(&builder.head);
    return builder.head;
}

UomStruct chain_CopyIn(NodePool &pool, UomStruct chain) {
    return copy(&pool, chain).head;
}

UomStruct chain_BuildIn(NodePool &pool, const Catalogue &catalogue, int32_t count, const int32_t *classes,
                        const int32_t *exponents, const int32_t *units) {
    return build(&pool, catalogue, count, classes, exponents, units).head;
}

void chain_Free(UomStruct *chain) {
    if (!chain)
        return;
    for (UomStruct node = *chain; node;) {
        UomStruct next = node->next;
        mem_Free(node);
        node = next;
    }
    *chain = nullptr;
}

UomStruct chain_NewNode() {
    return mem_New<UomStructNode>();
}

UomStruct chain_Last(UomStruct chain) {
    return before(chain, nullptr);
}

UomStruct chain_Link(UomStruct a, UomStruct b) {
    if (!a)
        return b;
    chain_Last(a)->next = b;
    return a;
}

UomStruct chain_Unlink(UomStruct chain, UomStruct node) {
    if (!node || !chain)
        return chain;
    if (chain == node) {
        UomStruct head = node->next;
        node->next = nullptr;
        return head;
    }
    UomStruct previous = before(chain, node);
    if (previous) {
        previous->next = node->next;
        node->next = nullptr;
    }
    return chain;
}

UomStruct chain_InsertBefore(UomStruct chain, UomStruct insert, UomStruct node) {
    if (!insert)
        return chain;
    if (!chain)
        return insert;
    const bool first = chain == node;
    UomStruct previous = first ? nullptr : before(chain, node);
    if (!first && !previous)
        return chain_Link(chain, insert);
    chain_Last(insert)->next = first ? chain : previous->next;
    if (first)
        return insert;
    previous->next = insert;
    return chain;
}

UomStruct uom_RemoveStruct(const Catalogue &catalogue, UomStruct *chain, int32_t classId) {
    if (!chain || !*chain || classId < 1 || classId >= STATIC_CLASSES)
        return nullptr;
    UomStruct head = *chain;
    UomStruct end = head;
    for (int32_t i = 1; end->next && i < uom_GetUnitMax(catalogue, classId); ++i)
        end = end->next;
    *chain = end->next;
    end->next = nullptr;
    return head;
}

UomStruct chain_FindClass(UomStruct chain, int32_t classId) {
    while (chain && chain->baseClass != classId)
        chain = chain->next;
    return chain;
}

int32_t chain_IndexOf(UomStruct chain, UomStruct node) {
    for (int32_t i = 0; chain; chain = chain->next, ++i)
        if (chain == node)
            return i;
    return -1;
}

int32_t chain_IsStartOfClass(UomStruct node) {
    return node && node->tag == TAG_COMPONENT;
}

UomStruct uom_GetEndOfClass(const Catalogue &catalogue, UomStruct node) {
    const int32_t nodes = node ? uom_GetUnitMax(catalogue, node->classId) : 0;
    if (nodes == 0)
        return nullptr;
    for (int32_t i = 1; node->next && i < nodes; ++i)
        node = node->next;
    return node;
}

int32_t chain_Length(UomStruct chain) {
    int32_t count = 0;
    for (; chain; chain = chain->next)
        ++count;
    return count;
}

int32_t uom_GetClassCount(const Catalogue &catalogue, UomStruct chain) {
    int32_t count = 0;
    for (; chain; chain = chain->next)
        if (uom_IsClassBase(catalogue, chain->classId) || chain_IsStartOfClass(chain))
            ++count;
    return count;
}

void chain_GetClasses(UomStruct chain, int32_t n, int32_t *classes) {
    readField(chain, n, classes, &UomStructNode::baseClass);
}

void chain_SetClasses(UomStruct chain, int32_t n, const int32_t *classes) {
    writeField(chain, n, classes, &UomStructNode::baseClass);
}

void chain_GetMultipliers(UomStruct chain, int32_t n, int32_t *multipliers) {
    readField(chain, n, multipliers, &UomStructNode::multiplier);
}

void chain_SetMultipliers(UomStruct chain, int32_t n, const int32_t *multipliers) {
    writeField(chain, n, multipliers, &UomStructNode::multiplier);
}

void chain_GetUnits(UomStruct chain, int32_t count, int32_t *units) {
    readField(chain, count, units, &UomStructNode::unit);
}

} // namespace uom
