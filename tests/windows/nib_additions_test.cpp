#include <tests/support/NibTest.h>

#include <plix/windows/nib_additions.h>

#include <concepts>

namespace plix {
namespace {

constexpr std::string_view helperElement = R"(<customObject id="1" customClass="NibHelper"/>)";

template <typename Last>
concept RemembersFrom = requires(NSNib& nib, NSObject* owner, Last last)
{
    {
        instantiateNibWithOwner(nib, owner, last)
        } -> std::same_as<bool>;
};
static_assert(RemembersFrom<bool>);
static_assert(!RemembersFrom<std::vector<Ref<NSObject>>*>);
static_assert(!RemembersFrom<std::nullptr_t>);

class NibAdditions : public NibTest {
protected:
    NibAdditions()
        : helperNib(nib(document(helperElement)))
    {
    }
    ~NibAdditions() override { forgetTopLevelObjectsForOwner(owner.get()); }

    static std::size_t remembered()
    {
        auto const* objects = PLIXNSNibAdditionsRememberedTopLevelObjects;
        return objects ? objects->size() : 0;
    }

    Ref<NSNib> helperNib;
};

TEST_F(NibAdditions, KeepsTopLevelObjectsUntilTheOwnerForgetsThem)
{
    EXPECT_TRUE(instantiateNibWithOwner(*helperNib, owner.get(), true));
    EXPECT_EQ(NibHelper::alive, 1);
    EXPECT_EQ(remembered(), 1U);
    forgetTopLevelObjectsForOwner(owner.get());
    EXPECT_EQ(NibHelper::alive, 0);
    EXPECT_EQ(remembered(), 0U);
}

TEST_F(NibAdditions, KeysAreAddressesAsDecimalNumbers)
{
    instantiateNibWithOwner(*helperNib, owner.get(), true);
    auto const& entry = *PLIXNSNibAdditionsRememberedTopLevelObjects->begin();
    EXPECT_EQ(entry.first, std::to_string(reinterpret_cast<std::uintptr_t>(owner.get())));
    EXPECT_EQ(entry.second.size(), 1U);
}

TEST_F(NibAdditions, WithoutTheFlagTheOwnerItselfKeepsThem)
{
    EXPECT_TRUE(instantiateNibWithOwner(*helperNib, owner.get(), false));
    EXPECT_EQ(remembered(), 0U);
    EXPECT_EQ(NibHelper::alive, 1);
    owner = nullptr;
    EXPECT_EQ(NibHelper::alive, 0);
}

TEST_F(NibAdditions, RemembersWhatItHandsOver)
{
    std::vector<Ref<NSObject>> objects;
    EXPECT_TRUE(instantiateNibWithOwner(*helperNib, owner.get(), &objects, true));
    ASSERT_EQ(objects.size(), 1U);
    EXPECT_EQ(PLIXNSNibAdditionsRememberedTopLevelObjects->begin()->second, objects);
    objects.clear();
    EXPECT_EQ(NibHelper::alive, 1);
}

TEST_F(NibAdditions, RemembersNothingWithoutFlagOrArray)
{
    std::vector<Ref<NSObject>> objects;
    EXPECT_TRUE(instantiateNibWithOwner(*helperNib, owner.get(), &objects, false));
    EXPECT_TRUE(instantiateNibWithOwner(*helperNib, owner.get(), nullptr, true));
    EXPECT_EQ(remembered(), 0U);
}

TEST_F(NibAdditions, RememberingAgainFreesWhatWasRememberedBefore)
{
    instantiateNibWithOwner(*helperNib, owner.get(), true);
    instantiateNibWithOwner(*helperNib, owner.get(), true);
    EXPECT_EQ(NibHelper::alive, 1);
    EXPECT_EQ(remembered(), 1U);
}

TEST_F(NibAdditions, RememberingTheArrayThatIsRememberedKeepsIt)
{
    instantiateNibWithOwner(*helperNib, owner.get(), true);
    rememberTopLevelObjects(PLIXNSNibAdditionsRememberedTopLevelObjects->begin()->second, owner.get());
    EXPECT_EQ(NibHelper::alive, 1);
    EXPECT_EQ(PLIXNSNibAdditionsRememberedTopLevelObjects->begin()->second.size(), 1U);
    forgetTopLevelObjectsForOwner(owner.get());
    EXPECT_EQ(NibHelper::alive, 0);
}

TEST_F(NibAdditions, ForgettingOneOwnerLeavesTheOthers)
{
    auto const other = make<NibOwner>();
    instantiateNibWithOwner(*helperNib, owner.get(), true);
    instantiateNibWithOwner(*helperNib, other.get(), true);
    EXPECT_EQ(NibHelper::alive, 2);
    EXPECT_EQ(remembered(), 2U);
    forgetTopLevelObjectsForOwner(owner.get());
    EXPECT_EQ(NibHelper::alive, 1);
    EXPECT_EQ(remembered(), 1U);
    auto const key = std::to_string(reinterpret_cast<std::uintptr_t>(other.get()));
    EXPECT_EQ(PLIXNSNibAdditionsRememberedTopLevelObjects->count(key), 1U);
    forgetTopLevelObjectsForOwner(other.get());
    EXPECT_EQ(NibHelper::alive, 0);
}

TEST_F(NibAdditions, RemembersNothingOfALoadThatFails)
{
    auto const broken = nib(document(R"(<scrollView id="1"><clipView key="contentView" id="2"><subviews>
        <tableView id="3" headerView="4"/></subviews></clipView><tableHeaderView key="headerView" id="4"><subviews>
        <tableView id="5" headerView="4"/></subviews></tableHeaderView></scrollView>)"));
    ASSERT_TRUE(broken);
    EXPECT_FALSE(instantiateNibWithOwner(*broken, owner.get(), true));
    EXPECT_EQ(remembered(), 0U);
}

TEST_F(NibAdditions, EntriesStayWhenTheOwnerIsGone)
{
    instantiateNibWithOwner(*helperNib, owner.get(), true);
    auto const* address = owner.get();
    owner = nullptr;
    EXPECT_EQ(NibHelper::alive, 1);
    forgetTopLevelObjectsForOwner(address);
    EXPECT_EQ(NibHelper::alive, 0);
}

TEST_F(NibAdditions, ForgettingWhatIsNotRememberedDoesNothing)
{
    auto const other = make<NibOwner>();
    instantiateNibWithOwner(*helperNib, owner.get(), true);
    forgetTopLevelObjectsForOwner(other.get());
    forgetTopLevelObjectsForOwner(nullptr);
    EXPECT_EQ(NibHelper::alive, 1);
}

TEST_F(NibAdditions, RemembersForNobodyToo)
{
    EXPECT_TRUE(instantiateNibWithOwner(*helperNib, nullptr, true));
    EXPECT_EQ(PLIXNSNibAdditionsRememberedTopLevelObjects->count("0"), 1U);
    forgetTopLevelObjectsForOwner(nullptr);
    EXPECT_EQ(NibHelper::alive, 0);
}

}
}
