// What a quantity is counted by: the node of class Basis in a chain, and the class of the node behind it.
#include "slates/basis.h"

#include "catalogue/class_table.h"
#include "slates/unit_entry.h"
#include "slates/working_units.h"
#include "uomstruct/chain.h"
#include "uomstruct/class_and_unit.h"
#include "uomstruct/class_string.h"

namespace uom {

int32_t uom_SetBasis(const Catalogue &catalogue, UomStruct chain, int32_t basis) {
    UomStruct node = chain_FindClass(chain, CLASS_BASIS);
    if (!node || basis == NO_UNIT)
        return 1;
    int32_t units[CHAIN_UNITS] = {};
    const int32_t place = chain_IndexOf(chain, node);
    if (place < CHAIN_UNITS)
        units[place] = basis;
    uom_SetUnits(catalogue, 1, 0, chain, CHAIN_UNITS, units);
    return 0;
}

UomStruct uom_AddBasisStruct(const Catalogue &catalogue, UomStruct chain, int32_t basis) {
    if (!chain)
        return nullptr;
    // The basis units stand in the data file in the order of this range.
    if (basis < catalogue.named.UOM_BASMOLE || basis > catalogue.named.UOM_BASVAPV || chain_HasBasis(chain))
        return chain;
    const int32_t anchorClass = chain->classId == CLASS_PETRO_DENSITY ? CLASS_PETRO_MASS : CLASS_MASS;
    UomStruct anchor = chain_FindClass(chain, anchorClass);
    UomStruct node = anchor ? chain_OfClass(catalogue, CLASS_BASIS) : nullptr;
    if (!node)
        return chain;
    uom_FillStruct(catalogue, node, CLASS_BASIS, "WT", STYLE_KEYWORD);
    node->classId = chain->classId;
    UomStruct head = chain_InsertBefore(chain, node, anchor);
    uom_SetBasis(catalogue, head, basis);
    return head;
}

UomStruct uom_RemoveBasisStruct(const Catalogue &catalogue, UomStruct chain) {
    UomStruct node = chain_FindClass(chain, CLASS_BASIS);
    if (!node)
        return chain;
    uom_SetBasis(catalogue, chain, catalogue.named.UOM_BASMASS);
    UomStruct head = chain_Unlink(chain, node);
    chain_Free(&node);
    return head;
}

int32_t chain_HasBasis(UomStruct chain) {
    return chain_FindClass(chain, CLASS_BASIS) != nullptr;
}

int32_t chain_BasisMatches(UomStruct a, UomStruct b) {
    for (; a && b; a = a->next, b = b->next)
        if (a->baseClass == CLASS_BASIS && b->baseClass == CLASS_BASIS)
            return 1;
    return 0;
}

int32_t uoms_GetBasis(const Catalogue &catalogue, const char *classString, const char *unitString) {
    if (!classString || !unitString)
        return NO_UNIT;
    ParsedChain chain(catalogue, classString);
    if (!chain.chain)
        return NO_UNIT;
    uom_FillStructFromString(catalogue, chain.chain, unitString, STYLE_TOKEN);
    UomStruct node = chain_FindClass(chain.chain, CLASS_BASIS);
    return node ? node->unit : NO_UNIT;
}

} // namespace uom
