// Hosts of uom.hpp, in one program: this file with exceptions, the other without. Each calls what it can without a started
// library, and compiles the rest.
#include "uom/uom.hpp"

#include <cstdio>
#if __cplusplus >= 202002L
#include <span>
#endif

int runWithoutExceptions();

namespace {

template <class From, class To> constexpr bool converts = std::is_convertible_v<From, To>;

// What a span is made of without a word, and what it is not made of.
static_assert(converts<std::vector<double> &, uom::Span<double>>);
static_assert(converts<double (&)[3], uom::Span<double>>);
static_assert(converts<std::array<float, 2> &, uom::Span<float>>);
static_assert(converts<const std::vector<double> &, uom::Span<const double>>);
static_assert(converts<std::vector<double>, uom::Span<const double>>);
static_assert(converts<uom::Span<double>, uom::Span<const double>>);
static_assert(!converts<std::vector<double>, uom::Span<double>>);
static_assert(!converts<const std::vector<double> &, uom::Span<double>>);
static_assert(!converts<std::vector<float> &, uom::Span<double>>);
static_assert(!converts<double, uom::Span<double>>);
#if __cplusplus >= 202002L
static_assert(converts<std::span<double>, uom::Span<double>>);
static_assert(converts<std::span<const double>, uom::Span<const double>>);
static_assert(!converts<std::span<const double>, uom::Span<double>>);
#endif

// An owner moves, and is copied by copy() alone.
template <class Owner>
constexpr bool isOwner = std::is_nothrow_move_constructible_v<Owner> &&std::is_nothrow_move_assignable_v<Owner> &&
                         !std::is_copy_constructible_v<Owner> && !std::is_copy_assignable_v<Owner>;
static_assert(isOwner<uom::Catalogue> && isOwner<uom::Chain> && isOwner<uom::Table> && isOwner<uom::Conversion>);
static_assert(!std::is_move_constructible_v<uom::Use> && !std::is_copy_constructible_v<uom::Use>);

} // namespace

int main() {
    if (uom::version() != UOM_VERSION) {
        std::printf("version %s\n", uom::version().c_str());
        return 1;
    }
    try {
        uom::startFile("/no/such/file");
        std::puts("a file that is not there has started the library");
        return 1;
    } catch (const uom::Error &error) {
        if (error.status() != UOM_START_NO_FILE || !*error.what())
            return 1;
    }
    return runWithoutExceptions();
}
