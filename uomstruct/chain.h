// The chain of nodes that holds the unit of one quantity; its operations are declared in uom.h.
//
// The nodes of one composite class stand together in the slot order of its row, the first with tag 100. Two
// chains of one class string have parallel nodes.
#ifndef UOM_UOMSTRUCT_CHAIN_H
#define UOM_UOMSTRUCT_CHAIN_H

#include <cstddef>
#include <cstdint>

#include "support/memory.h"
#include "uom/uom.h"
#include "catalogue/catalogue.h"
#include "catalogue/class_rows.h"

namespace uom {

constexpr int32_t TAG_COMPONENT = 100; // of a composite class's first node; 101 and 102 follow

// Entries of the work arrays of whoever handles the units of a chain.
constexpr int32_t CHAIN_UNITS = 20;

inline bool node_IsParenthesis(const UomStructNode &node) {
    return node.baseClass == CLASS_OPEN || node.baseClass == CLASS_CLOSE;
}

// Frees all nodes and clears the pointer; null is accepted.
void chain_Free(UomStruct *chain);

// A chain that lives as long as the block.
struct ScopedChain {
    UomStruct chain;
    explicit ScopedChain(UomStruct owned) : chain(owned) {}
    ~ScopedChain() { chain_Free(&chain); }
    ScopedChain(const ScopedChain &) = delete;
    ScopedChain &operator=(const ScopedChain &) = delete;
};

// The nodes of a working chain that never leaves a block: a class string has at most this many.
constexpr int32_t POOL_NODES = 60;
struct NodePool {
    int32_t used = 0;
    UomStructNode nodes[POOL_NODES];
    NodePool() {} // leaves the nodes as they are: most chains take one or two
};

// Chains in a pool. REQUIRES: the pool has room for all nodes.
UomStruct chain_BuildIn(NodePool &pool, const Catalogue &catalogue, int32_t count, const int32_t *classes,
                        const int32_t *exponents, const int32_t *units);
UomStruct chain_CopyIn(NodePool &pool, UomStruct chain);
UomStruct chain_OfClassIn(NodePool &pool, const Catalogue &catalogue, int32_t classId);

// uom_BuildStruct for those who need the whole chain: false, and a null chain, when memory is exhausted.
bool chain_Build(const Catalogue &catalogue, UomStruct *out, int32_t count, const int32_t *classes,
                 const int32_t *exponents, const int32_t *units);

// A zeroed node; null when memory is exhausted.
UomStruct chain_NewNode();

// The last node of a chain that is not empty.
UomStruct chain_Last(UomStruct chain);

// A new chain of one class with exponent 1; null when memory is exhausted.
UomStruct chain_OfClass(const Catalogue &catalogue, int32_t classId);

// The node that closes the group which `open` opens, null when it stays open.
UomStruct chain_MatchingClose(UomStruct open);

// The same for a walk that asks at opening nodes of a chain in their order: all are matched in one pass. Few groups
// take no memory; for want of memory each question walks by itself.
struct ClosingNodes {
    explicit ClosingNodes(UomStruct chain);
    ~ClosingNodes() { mem_Free(groups != local ? groups : nullptr); }
    ClosingNodes(const ClosingNodes &) = delete;
    ClosingNodes &operator=(const ClosingNodes &) = delete;

    // The node that closes the group, null when it stays open.
    // REQUIRES: `open` is an opening node of the chain, and none in front of it is asked for later.
    const UomStructNode *take(UomStruct open);

private:
    struct Group {
        const UomStructNode *open, *close;
        size_t around; // place of the group around it, NONE for an outer one
    };
    static constexpr size_t LOCAL = 16;
    static constexpr size_t NONE = SIZE_MAX;
    Group local[LOCAL];
    Group *groups = local; // in the order in which they open; null without memory
    size_t count = 0;
    size_t next = 0;
};

// A basis unit and the class that it gives the node behind it.
struct BasisClass {
    int32_t basis;
    int32_t classId;
};

// What a plain mole quantity and a plain volume are counted by: Mole or Molar, and, by the mode, the standard
// liquid or the actual volume. Moles go before an undecided setting, as they do after it.
BasisClass chain_MoleBasis(const Catalogue &catalogue);
BasisClass chain_VolumeBasis(const Catalogue &catalogue);

// A basis unit to the class of the node behind the Basis node, 0 for any other unit; and back, UOM_NULL for
// any other class.
int32_t uom_ClassFromBasis(const Catalogue &catalogue, int32_t basis);
int32_t uom_BasisFromClass(const Catalogue &catalogue, int32_t classId);

// The volume bases, which share their units.
bool chain_IsVolumeBasis(const Catalogue &catalogue, int32_t basis);

// Puts a unit into the node, with its multiplier style.
void chain_SetUnit(const Catalogue &catalogue, UomStruct node, int32_t unit);

// As uom.h says of these names; here the catalogue stands in front.
UomStruct uom_BuildStruct(const Catalogue &catalogue, int32_t count, const int32_t *classes, const int32_t *exponents,
                          const int32_t *units);
UomStruct uom_CreateStruct(const Catalogue &catalogue, int32_t classId, int32_t exponent, const int32_t *units);
void uom_DecodeStruct(const Catalogue &catalogue, UomStruct chain, int32_t n, int32_t *classes, int32_t *exponents);
UomStruct chain_Copy(UomStruct chain);
UomStruct chain_Link(UomStruct a, UomStruct b);
UomStruct chain_Unlink(UomStruct chain, UomStruct node);
UomStruct chain_InsertBefore(UomStruct chain, UomStruct insert, UomStruct node);
UomStruct uom_RemoveStruct(const Catalogue &catalogue, UomStruct *chain, int32_t classId);
UomStruct chain_FindClass(UomStruct chain, int32_t classId);
int32_t chain_IndexOf(UomStruct chain, UomStruct node);
int32_t chain_IsStartOfClass(UomStruct node);
UomStruct uom_GetEndOfClass(const Catalogue &catalogue, UomStruct node);
int32_t chain_Length(UomStruct chain);
int32_t uom_GetClassCount(const Catalogue &catalogue, UomStruct chain);
void chain_GetClasses(UomStruct chain, int32_t n, int32_t *classes);
void chain_SetClasses(UomStruct chain, int32_t n, const int32_t *classes);
void chain_GetMultipliers(UomStruct chain, int32_t n, int32_t *multipliers);
void chain_SetMultipliers(UomStruct chain, int32_t n, const int32_t *multipliers);
void chain_GetUnits(UomStruct chain, int32_t count, int32_t *units);

} // namespace uom

#endif
