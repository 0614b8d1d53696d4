#include "worlds.h"

#include <algorithm>

namespace tv {
namespace {

constexpr uint32_t kErrorUnknownProduct = 1605;

template <typename World> class InstalledProductsContract : public testing::Test
{
  protected:
    /// All products; on a real machine there may be others.
    std::vector<std::u16string> Products()
    {
        std::vector<std::u16string> found;
        std::u16string product;
        while (products.EnumProduct(static_cast<uint32_t>(found.size()), product) == 0) {
            found.push_back(product);
        }
        return found;
    }

    World world;
    InstalledProductsService& products = world.Services().products;
};

TYPED_TEST_SUITE(InstalledProductsContract, Worlds);

TYPED_TEST(InstalledProductsContract, AnInstalledProductIsEnumeratedOnce)
{
    const std::vector<std::u16string> before = this->Products();
    const std::u16string first = this->world.InstallProduct(u"Torvane 2012 x64 Edition SP0.1");
    const std::u16string second = this->world.InstallProduct(u"Torvane 2013 SP1");
    if (first.empty()) {
        GTEST_SKIP() << "this user may not install";
    }
    const std::vector<std::u16string> after = this->Products();
    EXPECT_EQ(after.size(), before.size() + 2);
    EXPECT_EQ(std::count(after.begin(), after.end(), first), 1);
    EXPECT_EQ(std::count(after.begin(), after.end(), second), 1);
}

TYPED_TEST(InstalledProductsContract, AnIndexBehindTheLastHasNoProduct)
{
    const auto behind = static_cast<uint32_t>(this->Products().size());
    std::u16string product = u"untouched";
    EXPECT_EQ(this->products.EnumProduct(behind, product), kErrorNoMoreItems);
    EXPECT_EQ(product, u"untouched");
}

TYPED_TEST(InstalledProductsContract, AProductHasItsName)
{
    const std::u16string product = this->world.InstallProduct(u"Torvane 2012 x64 Edition SP0.1");
    if (product.empty()) {
        GTEST_SKIP() << "this user may not install";
    }
    std::u16string name;
    EXPECT_EQ(this->products.GetProductInfo(product, kProductName, name), 0u);
    EXPECT_EQ(name, u"Torvane 2012 x64 Edition SP0.1");
}

TYPED_TEST(InstalledProductsContract, ANameIsToldUpTo259Characters)
{
    const std::u16string longest = this->world.InstallProduct(std::u16string(259, u'x'));
    const std::u16string longer = this->world.InstallProduct(std::u16string(260, u'x'));
    if (longest.empty()) {
        GTEST_SKIP() << "this user may not install";
    }
    std::u16string name;
    EXPECT_EQ(this->products.GetProductInfo(longest, kProductName, name), 0u);
    EXPECT_EQ(name, std::u16string(259, u'x'));
    name = u"untouched";
    EXPECT_EQ(this->products.GetProductInfo(longer, kProductName, name), kErrorMoreData);
    EXPECT_EQ(name, u"untouched");
}

TYPED_TEST(InstalledProductsContract, AProductThatIsntInstalledHasNoName)
{
    std::u16string name = u"untouched";
    EXPECT_EQ(this->products.GetProductInfo(u"{0C5A7E11-0000-0000-0000-00000000FFFF}", kProductName, name),
              kErrorUnknownProduct);
    EXPECT_EQ(name, u"untouched");
}

} // namespace
} // namespace tv
