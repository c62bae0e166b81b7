#include "uomstruct/chain.h"

#include <cstring>

#include "catalogue/class_table.h"
#include "catalogue/state.h"
#include "catalogue/units.h"
#include "support/memory.h"
#include "support/numbers.h"

namespace {

enum BasisRow { BASIS_MOLE, BASIS_MOLAR, BASIS_MASS, BASIS_LIQ_VOL, BASIS_VAP_VOL, BASIS_ACT_VOL };
const BasisClass basisClasses[] = {
    {&UOM_BASMOLE, CLASS_MOLE},    {&UOM_BASMOLAR, CLASS_MOLAR},  {&UOM_BASMASS, CLASS_MASS},
    {&UOM_BASLIQV, CLASS_LIQ_VOL}, {&UOM_BASVAPV, CLASS_VAP_VOL}, {&UOM_BASACTV, CLASS_ACT_VOL},
};

// A chain in the making.
struct Builder {
    UomStruct head = nullptr;
    UomStruct tail = nullptr;
    int32_t pendingClass = CLASS_NONE; // replaces the class of the next component, of whatever class that is
    bool complete = true;              // no node is missing for want of memory
};

// A node behind the tail; null, and the chain stays shorter, when memory is exhausted.
UomStruct append(Builder &builder) {
    UomStruct node = mem_New<UomStructNode>();
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

void appendComposite(Builder &builder, const UomClassRow &row, int32_t classId, int32_t exponent, int32_t basis) {
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
        if (basis > UOM_NULL && node->baseClass == CLASS_BASIS) {
            node->unit = basis;
            builder.pendingClass = uom_ClassFromBasis(basis);
            basis = UOM_NULL;
        }
    }
}

const UomClassRow *compositeRow(int32_t classId) {
    const UomClassRow *row = class_ValidRow(classId);
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

// Where the chain that was appended to last ends, so that a chain made node by node costs no walk for each. Forgotten
// as soon as any chain is freed or linked anew.
struct KnownEnd {
    UomStruct head = nullptr;
    UomStruct tail = nullptr;
};
KnownEnd knownEnd;

void forgetEnd() {
    knownEnd = {};
}

UomStruct last(UomStruct chain) {
    return before(chain == knownEnd.head ? knownEnd.tail : chain, nullptr);
}

} // namespace

int32_t uom_ClassFromBasis(int32_t basis) {
    for (const BasisClass &entry : basisClasses)
        if (basis > UOM_NULL && basis == *entry.basis)
            return entry.classId;
    return CLASS_NONE;
}

int32_t uom_BasisFromClass(int32_t classId) {
    for (const BasisClass &entry : basisClasses)
        if (classId == entry.classId)
            return *entry.basis;
    return UOM_NULL;
}

const BasisClass &chain_MoleBasis() {
    return basisClasses[uomMoleQuantity != 0 ? BASIS_MOLE : BASIS_MOLAR];
}

const BasisClass &chain_VolumeBasis() {
    const bool actual = uomModeKesta > 0 || uomModeVel2go > 0;
    return basisClasses[actual ? BASIS_ACT_VOL : BASIS_LIQ_VOL];
}

bool chain_IsVolumeBasis(int32_t basis) {
    const int32_t classId = uom_ClassFromBasis(basis);
    return classId >= CLASS_LIQ_VOL && classId <= CLASS_ACT_VOL;
}

UomStruct chain_OfClass(int32_t classId) {
    const int32_t exponent = 1;
    UomStruct chain;
    chain_Build(&chain, 1, &classId, &exponent, nullptr);
    return chain;
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

void chain_SetUnit(UomStruct node, int32_t unit) {
    const UomUnit *record = unit_Record(unit);
    node->unit = unit;
    node->unitStyle = record ? record->multiplierStyle : 0;
}

static Builder build(int32_t count, const int32_t *classes, const int32_t *exponents, const int32_t *units) {
    Builder builder;
    for (int32_t i = 0; classes && exponents && i < count; ++i) {
        const int32_t unit = units ? units[i] : UOM_NULL;
        const UomClassRow *row = compositeRow(classes[i]);
        if (row)
            appendComposite(builder, *row, classes[i], exponents[i], unit);
        else
            appendSimple(builder, classes[i], exponents[i], unit);
    }
    return builder;
}

UomStruct uom_BuildStruct(int32_t count, const int32_t *classes, const int32_t *exponents, const int32_t *units) {
    return build(count, classes, exponents, units).head;
}

bool chain_Build(UomStruct *out, int32_t count, const int32_t *classes, const int32_t *exponents,
                 const int32_t *units) {
    Builder builder = build(count, classes, exponents, units);
    if (!builder.complete)
        uom_Free(&builder.head);
    *out = builder.head;
    return builder.complete;
}

UomStruct uom_CreateStruct(int32_t classId, int32_t exponent, const int32_t *units) {
    if (!class_IsValid(classId))
        return nullptr;
    UomStruct chain;
    chain_Build(&chain, 1, &classId, &exponent, nullptr);
    const int32_t rowLength = uom_GetUnitMax(classId);
    for (int32_t slate = 0; units && slate < 3 && slate <= UOM_SET_SI - UOM_SET_ENGLISH; ++slate) {
        UomStruct node = chain;
        for (int32_t i = 0; node && i < rowLength; node = node->next, ++i)
            node->slateUnit[slate] = units[slate * rowLength + i];
    }
    return chain;
}

void uom_DecodeStruct(UomStruct chain, int32_t n, int32_t *classes, int32_t *exponents) {
    if (!classes || !exponents || n < 1)
        return;
    std::memset(classes, 0, static_cast<size_t>(n) * sizeof *classes);
    std::memset(exponents, 0, static_cast<size_t>(n) * sizeof *exponents);
    for (int32_t i = 0; chain && i < n; chain = chain->next, ++i) {
        const bool simple = !compositeRow(chain->classId);
        if (!simple && chain->tag != TAG_COMPONENT)
            continue;
        classes[i] = chain->classId;
        exponents[i] = simple ? chain->baseExponent : chain->exponent;
    }
}

UomStruct uom_Copy(UomStruct chain) {
    Builder builder;
    for (; chain; chain = chain->next) {
        UomStruct node = append(builder);
        if (!node) {
            uom_Free(&builder.head);
            return nullptr;
        }
        *node = *chain;
        node->next = nullptr;
    }
    return builder.head;
}

void uom_Free(UomStruct *chain) {
    if (!chain)
        return;
    forgetEnd();
    for (UomStruct node = *chain; node;) {
        UomStruct next = node->next;
        mem_Free(node);
        node = next;
    }
    *chain = nullptr;
}

UomStruct uom_AddNewStruct(UomStruct *chain) {
    UomStruct node = mem_New<UomStructNode>();
    if (!node || !chain)
        return node;
    *chain = uom_LinkStruct(*chain, node);
    knownEnd = {*chain, node};
    return node;
}

UomStruct uom_LinkStruct(UomStruct a, UomStruct b) {
    if (!a)
        return b;
    last(a)->next = b;
    forgetEnd();
    return a;
}

UomStruct uom_UnlinkStruct(UomStruct chain, UomStruct node) {
    if (!node || !chain)
        return chain;
    forgetEnd();
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

UomStruct uom_InsertBeforeStruct(UomStruct chain, UomStruct insert, UomStruct node) {
    if (!insert)
        return chain;
    if (!chain)
        return insert;
    forgetEnd();
    const bool first = chain == node;
    UomStruct previous = first ? nullptr : before(chain, node);
    if (!first && !previous)
        return uom_LinkStruct(chain, insert);
    last(insert)->next = first ? chain : previous->next;
    if (first)
        return insert;
    previous->next = insert;
    return chain;
}

UomStruct uom_RemoveStruct(UomStruct *chain, int32_t classId) {
    if (!chain || !*chain || classId < 1 || classId >= STATIC_CLASSES)
        return nullptr;
    forgetEnd();
    UomStruct head = *chain;
    UomStruct end = head;
    for (int32_t i = 1; end->next && i < uom_GetUnitMax(classId); ++i)
        end = end->next;
    *chain = end->next;
    end->next = nullptr;
    return head;
}

UomStruct uom_FindStructClass(UomStruct chain, int32_t classId) {
    while (chain && chain->baseClass != classId)
        chain = chain->next;
    return chain;
}

int32_t uom_GetStructIndex(UomStruct chain, UomStruct node) {
    for (int32_t i = 0; chain; chain = chain->next, ++i)
        if (chain == node)
            return i;
    return -1;
}

int32_t uom_IsStartOfClass(UomStruct node) {
    return node && node->tag == TAG_COMPONENT;
}

UomStruct uom_GetEndOfClass(UomStruct node) {
    const int32_t nodes = node ? uom_GetUnitMax(node->classId) : 0;
    if (nodes == 0)
        return nullptr;
    for (int32_t i = 1; node->next && i < nodes; ++i)
        node = node->next;
    return node;
}

int32_t uom_GetUnitCount(UomStruct chain) {
    int32_t count = 0;
    for (; chain; chain = chain->next)
        ++count;
    return count;
}

int32_t uom_GetClassCount(UomStruct chain) {
    int32_t count = 0;
    for (; chain; chain = chain->next)
        if (uom_IsClassBase(chain->classId) || uom_IsStartOfClass(chain))
            ++count;
    return count;
}

void uom_GetClasses(UomStruct chain, int32_t n, int32_t *classes) {
    readField(chain, n, classes, &UomStructNode::baseClass);
}

void uom_SetClasses(UomStruct chain, int32_t n, const int32_t *classes) {
    writeField(chain, n, classes, &UomStructNode::baseClass);
}

void uom_GetMultipliers(UomStruct chain, int32_t n, int32_t *multipliers) {
    readField(chain, n, multipliers, &UomStructNode::multiplier);
}

void uom_SetMultipliers(UomStruct chain, int32_t n, const int32_t *multipliers) {
    writeField(chain, n, multipliers, &UomStructNode::multiplier);
}

void uom_GetCurrentUnits(UomStruct chain, int32_t count, int32_t *units) {
    readField(chain, count, units, &UomStructNode::unit);
}
