#include <plix/platform/foundation/NSCharacterSet.h>

#include <unicode/uchar.h>

namespace plix {

namespace {

struct Collected {
    std::uint32_t mask;
    std::vector<NSCharacterSet::Range> ranges;
};

NSCharacterSet const& setOfCategories(std::uint32_t mask)
{
    Collected collected { mask, {} };
    u_enumCharTypes(
        [](void const* context, UChar32 start, UChar32 limit, UCharCategory category) -> UBool {
            auto& into = *static_cast<Collected*>(const_cast<void*>(context));
            if (U_MASK(category) & into.mask)
                into.ranges.emplace_back(static_cast<char32_t>(start), static_cast<char32_t>(limit - 1));
            return true;
        },
        &collected);
    return *new NSCharacterSet(NSCharacterSet::characterSetWithRanges(std::move(collected.ranges)));
}

}

NSCharacterSet const& NSCharacterSet::alphanumericCharacterSet()
{
    static auto const& s_set = setOfCategories(U_GC_L_MASK | U_GC_M_MASK | U_GC_N_MASK);
    return s_set;
}

NSCharacterSet const& NSCharacterSet::letterCharacterSet()
{
    static auto const& s_set = setOfCategories(U_GC_L_MASK | U_GC_M_MASK);
    return s_set;
}

NSCharacterSet const& NSCharacterSet::uppercaseLetterCharacterSet()
{
    static auto const& s_set = setOfCategories(U_GC_LU_MASK | U_GC_LT_MASK);
    return s_set;
}

NSCharacterSet const& NSCharacterSet::lowercaseLetterCharacterSet()
{
    static auto const& s_set = setOfCategories(U_GC_LL_MASK);
    return s_set;
}

NSCharacterSet const& NSCharacterSet::decimalDigitCharacterSet()
{
    static auto const& s_set = setOfCategories(U_GC_ND_MASK);
    return s_set;
}

NSCharacterSet const& NSCharacterSet::punctuationCharacterSet()
{
    static auto const& s_set = setOfCategories(U_GC_P_MASK);
    return s_set;
}

NSCharacterSet const& NSCharacterSet::symbolCharacterSet()
{
    static auto const& s_set = setOfCategories(U_GC_S_MASK);
    return s_set;
}

NSCharacterSet const& NSCharacterSet::controlCharacterSet()
{
    static auto const& s_set = setOfCategories(U_GC_CC_MASK | U_GC_CF_MASK);
    return s_set;
}

}
