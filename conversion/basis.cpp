// What a quantity is counted by: the node of class Basis in a chain, and the class of the node behind it.
#include "catalogue/class_table.h"
#include "catalogue/state.h"
#include "uomstruct/chain.h"

int32_t uom_SetBasis(UomStruct chain, int32_t basis) {
    UomStruct node = uom_FindStructClass(chain, CLASS_BASIS);
    if (!node || basis == UOM_NULL)
        return 1;
    int32_t units[CHAIN_UNITS] = {};
    const int32_t place = uom_GetStructIndex(chain, node);
    if (place < CHAIN_UNITS)
        units[place] = basis;
    uom_SetUnits(1, 0, chain, CHAIN_UNITS, units);
    return 0;
}

UomStruct uom_AddBasisStruct(UomStruct chain, int32_t basis) {
    if (!chain)
        return nullptr;
    // The basis units stand in the data file in the order of this range.
    if (basis < UOM_BASMOLE || basis > UOM_BASVAPV || uom_CheckForBasis(chain))
        return chain;
    const int32_t anchorClass = chain->classId == CLASS_PETRO_DENSITY ? CLASS_PETRO_MASS : CLASS_MASS;
    UomStruct anchor = uom_FindStructClass(chain, anchorClass);
    UomStruct node = anchor ? chain_OfClass(CLASS_BASIS) : nullptr;
    if (!node)
        return chain;
    uom_FillStruct(node, CLASS_BASIS, "WT", STYLE_KEYWORD);
    node->classId = chain->classId;
    UomStruct head = uom_InsertBeforeStruct(chain, node, anchor);
    uom_SetBasis(head, basis);
    return head;
}

UomStruct uom_RemoveBasisStruct(UomStruct chain) {
    UomStruct node = uom_FindStructClass(chain, CLASS_BASIS);
    if (!node)
        return chain;
    uom_SetBasis(chain, UOM_BASMASS);
    UomStruct head = uom_UnlinkStruct(chain, node);
    uom_Free(&node);
    return head;
}

int32_t uom_CheckForBasis(UomStruct chain) {
    return uom_FindStructClass(chain, CLASS_BASIS) != nullptr;
}

int32_t uom_IsBasisEqual(UomStruct a, UomStruct b) {
    for (; a && b; a = a->next, b = b->next)
        if (a->baseClass == CLASS_BASIS && b->baseClass == CLASS_BASIS)
            return 1;
    return 0;
}

int32_t uoms_GetBasis(const char *classString, const char *unitString) {
    if (!classString || !unitString)
        return UOM_NULL;
    const ScopedChain chain(uoms_New(classString));
    if (!chain.chain)
        return UOM_NULL;
    uom_FillStructFromString(chain.chain, unitString, STYLE_TOKEN);
    UomStruct node = uom_FindStructClass(chain.chain, CLASS_BASIS);
    return node ? node->unit : UOM_NULL;
}
