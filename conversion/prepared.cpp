#include "conversion/prepared.h"

#include <cfloat>
#include <cmath>
#include <cstring>

#include "catalogue/class_table.h"
#include "catalogue/units.h"
#include "conversion/kernel_bodies.h"
#include "conversion/kernels.h"
#include "conversion/wide.h"
#include "support/memory.h"
#include "support/message.h"
#include "uomstruct/chain.h"

namespace uom {

namespace {

// Constants of this size are multiplied and added as doubles without care.
constexpr int64_t LINE_EXPONENT = 900;

// What may not be prepared -----------------------------------------------------------------------------------------

int32_t refuse() {
    return UOM_CONVERT_BAD_ARGUMENT;
}

int32_t refuseArguments() {
    error_Set("Invalid input arguments detected in function uom_NewConversion().");
    return refuse();
}

bool isParallel(const UomStructNode &a, const UomStructNode &b) {
    return a.classId == b.classId && a.exponent == b.exponent && a.baseExponent == b.baseExponent && a.tag == b.tag;
}

// The chains are of one shape, and each pair of nodes of one kind of amount. 0, or 1 with a message.
int32_t checkKinds(const Catalogue &catalogue, const UomStructNode &a, const UomStructNode &b) {
    if (a.baseClass != b.baseClass) {
        error_Set("The units mean different kinds of amount: \"%s\" can't be converted to \"%s\".",
                  class_Token(catalogue, a.baseClass), class_Token(catalogue, b.baseClass));
        return refuse();
    }
    if (a.baseClass == CLASS_BASIS && a.unit != b.unit && unit_IsValid(catalogue, a.unit) &&
        unit_IsValid(catalogue, b.unit)) {
        error_Set("The units mean different kinds of amount: basis \"%s\" can't be converted to basis \"%s\".",
                  unit_Token(catalogue, a.unit), unit_Token(catalogue, b.unit));
        return refuse();
    }
    return UOM_DONE;
}

int32_t checkChains(const Catalogue &catalogue, const UomStructNode *from, const UomStructNode *to) {
    const UomStructNode *a = from, *b = to;
    while (a && b && isParallel(*a, *b)) {
        a = a->next;
        b = b->next;
    }
    if (a || b) {
        error_Set("The two chains are not parallel: a conversion needs both to be made from one class string.");
        return refuse();
    }
    int32_t status = UOM_DONE;
    for (; from && status == UOM_DONE; from = from->next, to = to->next)
        status = checkKinds(catalogue, *from, *to);
    return status;
}

// Values as they are, and one by one -------------------------------------------------------------------------------

template <class Element> void copyMany(const UomConversion *, const Element *in, Element *out, size_t count) {
    if (in != out && count > 0)
        std::memcpy(out, in, count * sizeof(Element));
}

template <double (*ONE)(const UomConversion *, double)>
void convertStrided(const UomConversion *conversion, const char *in, ptrdiff_t inStep, char *out, ptrdiff_t outStep,
                    size_t count) {
    for (; count > 0; --count, in += inStep, out += outStep) {
        double value;
        std::memcpy(&value, in, sizeof value);
        value = ONE(conversion, value);
        std::memcpy(out, &value, sizeof value);
    }
}

template <double (*ONE)(const UomConversion *, double), class Element>
void convertMany(const UomConversion *conversion, const Element *in, Element *out, size_t count) {
    for (size_t i = 0; i < count; ++i) {
        Element element;
        std::memcpy(&element, reinterpret_cast<const char *>(in) + i * sizeof element, sizeof element);
        element = static_cast<Element>(ONE(conversion, static_cast<double>(element)));
        std::memcpy(reinterpret_cast<char *>(out) + i * sizeof element, &element, sizeof element);
    }
}

double sameOne(const UomConversion *, double value) {
    return value;
}

double wideOne(const UomConversion *conversion, double value) {
    if (!(value >= conversion->line.limit))
        return value;
    if (std::isinf(value))
        return value * conversion->exact.factor.high;
    return wide_Rounded((wide_Of(value) + conversion->exact.offset) * conversion->exact.factor);
}

template <double (*ONE)(const UomConversion *, double)>
constexpr Operations oneByOne = {ONE, convertMany<ONE, double>, convertMany<ONE, float>, convertStrided<ONE>};

constexpr Operations sameOperations = {sameOne, copyMany<double>, copyMany<float>, convertStrided<sameOne>};

// Making one -------------------------------------------------------------------------------------------------------

bool isSame(const UomStructNode *a, const UomStructNode *b) {
    while (a && b && a->unit == b->unit && a->multiplier == b->multiplier) {
        a = a->next;
        b = b->next;
    }
    return !a && !b;
}

bool isUsual(const Wide &constant) {
    return constant.high == 0.0 || (constant.exponent > -LINE_EXPONENT && constant.exponent < LINE_EXPONENT);
}

double limitOf(const NumberConstants &numbers) {
    return numbers.nullDoubleLimit >= -DBL_MAX ? numbers.nullDoubleLimit : -DBL_MAX;
}

// The parts of a usual number, the nearest double and its rest.
ExactPair partsOf(const Wide &constant) {
    const double scale = exact_PowerOfTwo(static_cast<int>(constant.exponent));
    return {constant.high * scale, constant.low * scale};
}

// The double next to 0, and its rest, which has the same sign then.
ExactPair towardsZero(const ExactPair &parts) {
    if (parts.rest == 0.0 || (parts.rest > 0.0) == (parts.value > 0.0))
        return parts;
    const double below = std::bit_cast<double>(std::bit_cast<uint64_t>(parts.value) - 1);
    return {below, (parts.value - below) + parts.rest};
}

void setLine(UomConversion &conversion) {
    const Kernels &kernels = kernels_Widest();
    const Linear &exact = conversion.exact;
    ExactPair factor = partsOf(exact.factor);
    const ExactPair offset = partsOf(exact.offset);
    const bool shifted = offset.value != 0.0;
    if (!shifted)
        factor = towardsZero(factor);
    Line &line = conversion.line;
    line.bound = std::fmin(-line.limit, DBL_MAX);
    line.offset = offset.value;
    line.factor = factor.value;
    line.factorRest = factor.rest;
    line.rest = offset.rest * factor.value;
    if (!shifted && factor.rest != 0.0 && kernels.fused)
        line.quick = line.limit;
    conversion.run = shifted ? kernels.shifted : factor.rest == 0.0 ? kernels.product : kernels.wideProduct;
}

void setLinear(UomConversion &conversion) {
    conversion.form =
        isUsual(conversion.exact.offset) && isUsual(conversion.exact.factor) ? Form::LINE : Form::WIDE_LINE;
    if (conversion.form == Form::LINE)
        setLine(conversion);
    else
        conversion.run = oneByOne<wideOne>;
}

ResolvedNode *nodesOf(UomConversion *conversion) {
    return reinterpret_cast<ResolvedNode *>(conversion + 1);
}

const ResolvedNode *nodesOf(const UomConversion *conversion) {
    return reinterpret_cast<const ResolvedNode *>(conversion + 1);
}

void setWalk(const Catalogue &catalogue, UomConversion &conversion, const UomStructNode *from,
             const UomStructNode *to) {
    ResolvedNode *nodes = nodesOf(&conversion);
    for (size_t i = 0; i < conversion.count; ++i, from = from->next, to = to->next)
        nodes[i] = resolved_Node(catalogue, *from, *to);
    conversion.gravity = gravity_Line({nodes, nodes + conversion.count}, conversion.numbers);
    conversion.run = conversion.gravity.steps > 0 ? kernels_Widest().gravity : oneByOne<walk_One>;
}

} // namespace

double walk_One(const UomConversion *conversion, double value) {
    const ResolvedNode *nodes = nodesOf(conversion);
    return resolved_Convert({nodes, nodes + conversion->count}, conversion->numbers, value);
}

// A block for a conversion that gives values back, with room for its nodes; null, with the message, without memory.
static UomConversion *allocate(const Linear &exact, size_t nodes) {
    void *block = nullptr;
    if (mem_Malloc(&block, sizeof(UomConversion) + nodes * sizeof(ResolvedNode)) != 0) {
        error_Set("Memory is exhausted: the conversion was not made.");
        return nullptr;
    }
    UomConversion *conversion = static_cast<UomConversion *>(block);
    *conversion = {sameOperations, {limitOf(numConstants), 0, 0, 0, 0, 0, NAN}, {}, Form::SAME, exact, numConstants,
                   nodes};
    return conversion;
}

static bool isOne(const Wide &number) {
    return number.high == 1.0 && number.low == 0.0 && number.exponent == 0;
}

int32_t prepared_New(const Catalogue &catalogue, UomStruct from, UomStruct to, UomConversion **out) {
    return prepared_NewScaled(catalogue, from, to, wide_Of(1.0), wide_Of(1.0), out);
}

int32_t prepared_NewScaled(const Catalogue &catalogue, UomStruct from, UomStruct to, const Wide &before,
                           const Wide &after, UomConversion **out) {
    if (out)
        *out = nullptr;
    if (!from || !to || !out)
        return refuseArguments();
    if (checkChains(catalogue, from, to) != UOM_DONE)
        return refuse();
    Linear exact;
    const bool scaled = !isOne(before) || !isOne(after);
    const bool same = isSame(from, to) && !scaled;
    const bool walks = !same && !linear_Compose(catalogue, from, to, &exact);
    if (walks && scaled) {
        error_Set("A multiple of a unit that no factor tells converts into nothing.");
        return UOM_REFUSED;
    }
    if (scaled) {
        exact.offset = exact.offset / before;
        exact.factor = exact.factor * before / after;
    }
    UomConversion *conversion = allocate(exact, walks ? static_cast<size_t>(chain_Length(from)) : 0);
    if (!conversion)
        return UOM_NO_MEMORY;
    if (walks) {
        conversion->form = Form::WALK;
        setWalk(catalogue, *conversion, from, to);
    } else if (!same) {
        setLinear(*conversion);
    }
    *out = conversion;
    return UOM_DONE;
}

int32_t prepared_NewProduct(const Wide &factor, UomConversion **out) {
    *out = allocate({{}, factor}, 0);
    if (!*out)
        return UOM_NO_MEMORY;
    setLinear(**out);
    return UOM_DONE;
}

int32_t prepared_Constants(const UomConversion &conversion, double *factor, double *offset) {
    if (conversion.form == Form::WALK)
        return UOM_CONVERT_NOT_LINEAR;
    const double exactFactor = wide_Rounded(conversion.exact.factor);
    const double exactOffset = wide_Rounded(conversion.exact.offset);
    if (exactFactor == 0.0 || !std::isfinite(exactFactor) || !std::isfinite(exactOffset))
        return UOM_CONVERT_NOT_LINEAR; // no pair of doubles says it
    if (factor)
        *factor = exactFactor;
    if (offset)
        *offset = exactOffset;
    return UOM_DONE;
}

} // namespace uom
