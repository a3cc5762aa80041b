// What the standard formats do with the structure of a type: through its shape.

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/types.h>

#include "typeinfo/notes.h"

namespace shape_operations {

int deleted = 0;

struct Before {
    long before = 1;
};
struct Base {
    int b = 2;
};
struct Derived : Before, Base {
    int d = 3;
};
struct Abstract {
    virtual ~Abstract() = default;
    virtual int Get() const = 0;
};
struct Fixed {
    explicit Fixed(int x) : value(x) {}
    int value;
};
VEXA_DESCRIBE(Before, before)
VEXA_DESCRIBE(Base, b)
VEXA_DESCRIBE_CLASS(Derived)
{
    about.Base<Before>();
    about.Base<Base>();
    about.Attrib("d", &Derived::d);
}
VEXA_DESCRIBE_CLASS(Abstract) {}
VEXA_DESCRIBE(Fixed, value)

} // namespace shape_operations

namespace {

using namespace shape_operations;
using namespace vexa::detail;

template<class T>
const CShape& ShapeOf()
{
    return *vexa::typeinfo::ShapeOf(
        *static_cast<const vexa::CCustomBasicTypeInfor*>(vexa::TypeInforOf<T>().DetailInfor));
}
template<class Operations, class T>
const Operations& OperationsOf()
{
    return *static_cast<const Operations*>(ShapeOf<T>().Operations);
}

TEST(Shape, LiesOnlyBehindDescriptorsThatTheLibraryMade)
{
    const auto& infor =
        *static_cast<const vexa::CCustomBasicTypeInfor*>(vexa::TypeInforOf<std::optional<int>>().DetailInfor);
    EXPECT_NE(vexa::typeinfo::ShapeOf(infor), nullptr);
    const vexa::CCustomBasicTypeInfor copy = infor;
    EXPECT_EQ(vexa::typeinfo::ShapeOf(copy), nullptr);
    EXPECT_EQ(ShapeOf<std::optional<int>>().PartCount, 1U);
    EXPECT_EQ((ShapeOf<std::variant<int, bool, Base>>().PartCount), 3U);
    EXPECT_EQ(ShapeOf<std::tuple<>>().PartCount, 0U);
}

TEST(Shape, OfAnOptionalMakesAndDropsItsValue)
{
    using Optional = std::optional<std::string>;
    const auto& operations = OperationsOf<COptionalOperations, Optional>();
    Optional optional;
    EXPECT_EQ(operations.Get(&optional), nullptr);
    auto* const made = static_cast<std::string*>(operations.Make(&optional));
    *made = "x";
    EXPECT_EQ(operations.Get(&optional), made);
    EXPECT_EQ(*optional, "x");
    EXPECT_EQ(*static_cast<std::string*>(operations.Make(&optional)), "") << "replaced";
    operations.Reset(&optional);
    EXPECT_FALSE(optional.has_value());
    EXPECT_EQ(operations.Adopt, nullptr);
}

TEST(Shape, MakesNothingThatHasNoDefault)
{
    std::optional<Fixed> optional = Fixed(5);
    EXPECT_EQ((OperationsOf<COptionalOperations, std::optional<Fixed>>().Make(&optional)), nullptr);
    EXPECT_EQ(optional->value, 5);
    auto shared = std::make_shared<const int>(7);
    EXPECT_EQ((OperationsOf<COptionalOperations, std::shared_ptr<const int>>().Make(&shared)), nullptr);
    EXPECT_EQ(*shared, 7);
    EXPECT_EQ(ShapeOf<std::shared_ptr<const int>>().Parts[0].HoldingFlags, vexa::Enum::HF_CONST);
    std::shared_ptr<Abstract> abstract;
    EXPECT_EQ((OperationsOf<COptionalOperations, std::shared_ptr<Abstract>>().Make(&abstract)), nullptr);
    std::variant<int, Fixed> variant = 3;
    EXPECT_EQ((OperationsOf<CVariantOperations, std::variant<int, Fixed>>().Make(&variant, 1)), nullptr);
    EXPECT_EQ(std::get<int>(variant), 3);
}

TEST(Shape, OfASharedPointerDoesNotWriteThroughWhatOthersShare)
{
    auto shared = std::make_shared<int>(5);
    const auto other = shared;
    *static_cast<int*>(OperationsOf<COptionalOperations, std::shared_ptr<int>>().Make(&shared)) = 6;
    EXPECT_EQ(*shared, 6);
    EXPECT_EQ(*other, 5);
}

TEST(Shape, OfASharedPointerTakesOverAnObjectOfADerivedClass)
{
    const auto& operations = OperationsOf<COptionalOperations, std::shared_ptr<Base>>();
    deleted = 0;
    auto* const whole = new Derived();
    std::shared_ptr<Base> pointer;
    operations.Adopt(&pointer, static_cast<Base*>(whole), whole, [](void* object) {
        ++deleted;
        delete static_cast<Derived*>(object);
    });
    EXPECT_EQ(pointer.get(), static_cast<Base*>(whole));
    std::shared_ptr<Base> other = pointer;
    operations.Reset(&pointer);
    EXPECT_EQ(deleted, 0);
    other.reset();
    EXPECT_EQ(deleted, 1);
}

TEST(Shape, OfAVariantTellsAndMakesItsAlternative)
{
    using Variant = std::variant<std::monostate, int, std::string>;
    const auto& operations = OperationsOf<CVariantOperations, Variant>();
    Variant variant;
    EXPECT_EQ(operations.Index(&variant), 0U);
    EXPECT_EQ(ShapeOf<Variant>().Parts[0].DataType, vexa::Enum::DT_NULL);
    *static_cast<std::string*>(operations.Make(&variant, 2)) = "x";
    EXPECT_EQ(operations.Index(&variant), 2U);
    EXPECT_EQ(operations.Get(&variant), &std::get<std::string>(variant));
    EXPECT_EQ(*static_cast<int*>(operations.Make(&variant, 1)), 0);
}

struct Throws {
    Throws() = default;
    Throws(const Throws&) { throw 1; }
    Throws& operator=(const Throws&) = default;
    int x = 0;
};
VEXA_DESCRIBE(Throws, x)

TEST(Shape, OfAVariantWithoutValueSaysSo)
{
    using Variant = std::variant<int, Throws>;
    Variant variant = 1;
    const Throws throws;
    EXPECT_ANY_THROW(variant.emplace<1>(throws));
    ASSERT_TRUE(variant.valueless_by_exception());
    const auto& operations = OperationsOf<CVariantOperations, Variant>();
    EXPECT_EQ(operations.Index(&variant), CVariantOperations::VALUELESS);
    EXPECT_EQ(operations.Get(&variant), nullptr);
    EXPECT_EQ(vexa::AsString(variant), "NULL");
}

TEST(Shape, OfATupleLeadsToItsParts)
{
    using Tuple = std::tuple<int, std::string, bool>;
    Tuple tuple;
    const auto& operations = OperationsOf<CTupleOperations, Tuple>();
    EXPECT_EQ(operations.Part(&tuple, 0), &std::get<0>(tuple));
    EXPECT_EQ(operations.Part(&tuple, 1), &std::get<1>(tuple));
    EXPECT_EQ(operations.Part(&tuple, 2), &std::get<2>(tuple));
}

TEST(Shape, ExchangesTwoObjectsWhereThatCannotFail)
{
    auto left = std::make_shared<int>(1);
    auto right = std::make_shared<int>(2);
    ShapeOf<std::shared_ptr<int>>().Swap(&left, &right);
    EXPECT_EQ(*left, 2);
    std::variant<int, std::unique_ptr<int>> first = 5;
    std::variant<int, std::unique_ptr<int>> second = std::make_unique<int>(6);
    ShapeOf<std::variant<int, std::unique_ptr<int>>>().Swap(&first, &second);
    EXPECT_EQ(*std::get<1>(first), 6);
    EXPECT_EQ(ShapeOf<std::atomic<int>>().Swap, nullptr);
    EXPECT_EQ(ShapeOf<std::optional<Throws>>().Swap, nullptr);
    for (const bool isThere :
         {ShapeOf<signed char>().Swap != nullptr, ShapeOf<std::vector<bool>>().Swap != nullptr,
          ShapeOf<std::filesystem::path>().Swap != nullptr, ShapeOf<std::string_view>().Swap != nullptr,
          ShapeOf<std::chrono::seconds>().Swap != nullptr, ShapeOf<std::tuple<int, bool>>().Swap != nullptr})
        EXPECT_TRUE(isThere);
}

TEST(Shape, OfTextReadsIntoWhatKeepsText)
{
    std::string memory;
    std::filesystem::path path = "a/b";
    const auto& ofPath = OperationsOf<CTextOperations, std::filesystem::path>();
    EXPECT_EQ(ofPath.Get(&path, memory), "a/b");
    ofPath.Set(&path, "c");
    EXPECT_EQ(path, "c");
    std::string_view view = "v";
    const auto& ofView = OperationsOf<CTextOperations, std::string_view>();
    EXPECT_EQ(ofView.Get(&view, memory).data(), view.data());
    EXPECT_EQ(ofView.Set, nullptr);
    ofView.Clear(&view);
    EXPECT_EQ(view, "");
}

/// An application's own description goes before that of the library.
struct Own {
    int x = 1;
};
inline void ToValue(const std::optional<Own>& own, vexa::CValue& out) { out = own.has_value() ? "there" : "away"; }
inline void FromValue(std::optional<Own>& own, const vexa::CValue&) { own.reset(); }
VEXA_DESCRIBE_CUSTOM_ANY(std::optional<Own>, 31)

TEST(Shape, YieldsToADescriptionOfTheApplication)
{
    EXPECT_EQ(vexa::AsString(std::optional<Own>(Own())), "there");
    EXPECT_EQ(vexa::TypeInforOf<std::optional<Own>>().GetCustomTypeID(), 31U);
    const auto& infor =
        *static_cast<const vexa::CCustomBasicTypeInfor*>(vexa::TypeInforOf<std::optional<Own>>().DetailInfor);
    EXPECT_EQ(vexa::typeinfo::ShapeOf(infor), nullptr);
}

} // namespace
