// Strict conversions, every type from and to every other, against a model of their own.

#include <vexa/access.h>

#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <filesystem>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <regex>
#include <string>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/interchange.h>
#include <vexa/types.h>

namespace convert_shop {

enum class Color : short { red = 1, green = -5 };
VEXA_DESCRIBE_ENUM(Color, red, green)

struct Address {
    std::string city;
    int zip = 1;
};
VEXA_DESCRIBE(Address, city, zip)

struct Person {
    int age = 41;
    std::uint8_t level = 7;
    std::string name = "Ann";
    Color color = Color::red;
    const int fixed = 3;
    const Address* known = nullptr;
    std::unique_ptr<int> owned;
    vexa::MayNull<int> maybe;
    std::optional<int> chosen;
    std::optional<Address> home;
    std::unique_ptr<Address> work;
    std::variant<int, std::string, Address> any = 5;
    std::vector<int> numbers{1, 2};
    std::string secret = "hush";
    int locked = 9;
    const char* label = "text";
    vexa::CValue value;
};
VEXA_DESCRIBE_CLASS(Person)
{
    VEXA_MEMBERS(Person, age, level, name, color, fixed, known, owned, maybe, chosen, home, work, any, numbers)
    about.Attrib("secret", &Person::secret).Masked();
    about.Attrib("locked", &Person::locked).ReadOnly();
    VEXA_MEMBERS(Person, label, value)
}

} // namespace convert_shop

namespace {

using namespace convert_shop;
using vexa::Get;
using vexa::Set;
using vexa::TryGet;
using vexa::TrySet;
using Clock = std::chrono::system_clock;
using Seconds = std::chrono::duration<long long>;
__extension__ typedef __int128 Wide;

/// What a value means, whatever its type.
struct Model {
    enum class Kind { BOOL, INTEGER, FLOATING, TEXT };

    Kind What = Kind::TEXT;
    bool Bool = false;
    Wide Integer = 0;
    long double Floating = 0;
    std::string Text;                 ///< as a text
    std::optional<std::string> Bytes; ///< of a text that is base64
    std::optional<long long> Instant; ///< of a text that is a time: seconds since 1970
    std::optional<Color> Name;        ///< of a text that is the name of a color
};

Model OfBool(bool value)
{
    Model model;
    model.What = Model::Kind::BOOL;
    model.Bool = value;
    model.Text = value ? "true" : "false";
    return model;
}
Model OfInteger(Wide value, const std::string& text)
{
    Model model;
    model.What = Model::Kind::INTEGER;
    model.Integer = value;
    model.Text = text;
    return model;
}
Model OfFloating(long double value, const std::string& text)
{
    Model model;
    model.What = Model::Kind::FLOATING;
    model.Floating = value;
    model.Text = text;
    return model;
}
Model OfText(const std::string& text)
{
    Model model;
    model.Text = text;
    return model;
}

const std::regex NUMBER("-?(0|[1-9][0-9]*)(\\.[0-9]+)?([eE][+-]?[0-9]+)?");
const std::regex WHOLE("-?(0|[1-9][0-9]*)");

Wide WholeOf(const std::string& text)
{
    Wide value = 0;
    for (const char digit : text)
        if (digit != '-') value = value * 10 + (digit - '0');
    return text[0] == '-' ? -value : value;
}

template<class T>
std::optional<T> Narrowed(Wide value)
{
    const bool fits = value >= static_cast<Wide>(std::numeric_limits<T>::min()) &&
                      value <= static_cast<Wide>(std::numeric_limits<T>::max());
    return fits ? std::optional<T>(static_cast<T>(value)) : std::nullopt;
}
template<class T>
std::optional<T> NarrowedFloating(long double value)
{
    if (!std::isfinite(value) || std::trunc(value) != value || std::fabs(value) > 1e30L) return std::nullopt;
    return Narrowed<T>(static_cast<Wide>(value));
}

template<class T>
std::optional<T> Parsed(const std::string& text)
{
    T value{};
    if constexpr (std::is_same_v<T, float>) value = std::strtof(text.c_str(), nullptr);
    if constexpr (std::is_same_v<T, double>) value = std::strtod(text.c_str(), nullptr);
    if constexpr (std::is_same_v<T, long double>) value = std::strtold(text.c_str(), nullptr);
    return std::isinf(value) ? std::nullopt : std::optional<T>(value);
}

std::string WithoutExponent(const std::string& text)
{
    if (text == "1e3") return "1000";
    if (text == "1e+06") return "1000000";
    if (text == "1.5e1") return "15";
    if (text == "1e400") return '1' + std::string(400, '0');
    return text == "1e+300" ? '1' + std::string(300, '0') : text;
}

/// What a value is as a T; nothing where it is none.
template<class T>
std::optional<T> As(const Model& model)
{
    const bool isText = model.What == Model::Kind::TEXT;
    const bool isNumberText = isText && std::regex_match(model.Text, NUMBER);
    if constexpr (std::is_same_v<T, bool>) {
        if (model.What == Model::Kind::BOOL) return model.Bool;
        if (isText && model.Text == "true") return true;
        return isText && model.Text == "false" ? std::optional<bool>(false) : std::nullopt;
    } else if constexpr (std::is_integral_v<T>) {
        if (model.What == Model::Kind::INTEGER) return Narrowed<T>(model.Integer);
        if (model.What == Model::Kind::FLOATING) return NarrowedFloating<T>(model.Floating);
        if (!isNumberText) return std::nullopt;
        if (std::regex_match(model.Text, WHOLE)) return Narrowed<T>(WholeOf(model.Text));
        return NarrowedFloating<T>(std::strtold(model.Text.c_str(), nullptr));
    } else if constexpr (std::is_floating_point_v<T>) {
        if (model.What == Model::Kind::INTEGER) return static_cast<T>(model.Integer);
        if (model.What == Model::Kind::FLOATING) {
            const T value = static_cast<T>(model.Floating);
            return std::isinf(value) && !std::isinf(model.Floating) ? std::nullopt : std::optional<T>(value);
        }
        return isNumberText ? Parsed<T>(model.Text) : std::nullopt;
    } else if constexpr (std::is_same_v<T, std::string> || std::is_same_v<T, std::filesystem::path>) {
        if (model.What == Model::Kind::FLOATING && !std::isfinite(model.Floating)) return std::nullopt;
        return T(model.Text);
    } else if constexpr (std::is_same_v<T, Seconds>) {
        const auto count = As<long long>(model);
        return count ? std::optional<T>(Seconds(*count)) : std::nullopt;
    } else if constexpr (std::is_same_v<T, Clock::time_point>) {
        return model.Instant ? std::optional<T>(Clock::time_point(Seconds(*model.Instant))) : std::nullopt;
    } else if constexpr (std::is_same_v<T, vexa::CDateTime>) {
        return model.Instant ? std::optional<T>(vexa::CDateTime(*model.Instant, 0)) : std::nullopt;
    } else if constexpr (std::is_same_v<T, vexa::CBinary>) {
        return model.Bytes ? std::optional<T>(vexa::CBinary(*model.Bytes)) : std::nullopt;
    } else if constexpr (std::is_same_v<T, Color>) {
        if (isText) return model.Name;
        const auto number = As<short>(model);
        return number ? std::optional<T>(static_cast<Color>(*number)) : std::nullopt;
    } else {
        static_assert(std::is_same_v<T, vexa::CNumeric>);
        if (isText ? !isNumberText : model.What == Model::Kind::BOOL) return std::nullopt;
        if (!isText && !std::isfinite(model.Floating)) return std::nullopt;
        return vexa::CNumeric(WithoutExponent(model.Text));
    }
}

template<class T>
bool IsSame(const T& left, const T& right)
{
    if constexpr (std::is_floating_point_v<T>)
        return (std::isnan(left) && std::isnan(right)) || left == right;
    else if constexpr (std::is_same_v<T, vexa::CBinary>)
        return left.Size == right.Size && std::memcmp(left.Data, right.Data, left.Size) == 0;
    else if constexpr (std::is_same_v<T, vexa::CNumeric>)
        return left.State == right.State && left.IsEqu(right);
    else if constexpr (std::is_same_v<T, vexa::CDateTime>)
        return left.State == right.State && left.TimeWord == right.TimeWord;
    else
        return left == right;
}

struct Sample {
    std::shared_ptr<void> Holder;
    vexa::CRefrence Ref;
    Model Means;
    std::string Name;
};

class Samples {
public:
    template<class T>
    void Add(T value, Model model)
    {
        auto holder = std::make_shared<T>(std::move(value));
        m_all.push_back({holder, vexa::RefOf(*holder), std::move(model),
                         vexa::TypeInforOf<T>().TypeName() + ' ' + std::to_string(m_all.size())});
        m_all.back().Name += " (" + m_all.back().Means.Text + ')';
    }
    template<class T>
    void AddIntegers()
    {
        for (const T value : {std::numeric_limits<T>::min(), T{0}, T{1}, T{100}, std::numeric_limits<T>::max()})
            Add(value, OfInteger(value, std::to_string(+value)));
    }
    template<class T>
    void AddFloating()
    {
        Add(T{2.5}, OfFloating(2.5L, "2.5"));
        Add(T{-3}, OfFloating(-3.0L, "-3.0"));
        Add(T{1e6}, OfFloating(1e6L, "1e+06")); // the fewest bytes
        Add(T{std::numeric_limits<T>::quiet_NaN()}, OfFloating(std::numeric_limits<long double>::quiet_NaN(), ""));
        Add(T{std::numeric_limits<T>::infinity()}, OfFloating(std::numeric_limits<long double>::infinity(), ""));
    }
    const std::vector<Sample>& All() const { return m_all; }

private:
    std::vector<Sample> m_all;
};

Samples MakeSamples()
{
    Samples samples;
    samples.Add(true, OfBool(true));
    samples.Add(false, OfBool(false));
    samples.AddIntegers<std::int8_t>();
    samples.AddIntegers<unsigned char>();
    samples.AddIntegers<short>();
    samples.AddIntegers<unsigned short>();
    samples.AddIntegers<int>();
    samples.AddIntegers<unsigned int>();
    samples.AddIntegers<long>();
    samples.AddIntegers<unsigned long>();
    samples.AddIntegers<long long>();
    samples.AddIntegers<unsigned long long>();
    samples.AddFloating<float>();
    samples.AddFloating<double>();
    samples.AddFloating<long double>();
    samples.Add(1e300, OfFloating(static_cast<long double>(1e300), "1e+300"));
    for (const char* text : {"",
                             "12abc",
                             "12",
                             " 12",
                             "12 ",
                             "+5",
                             "007",
                             "-3",
                             "300",
                             "1e3",
                             "2.5",
                             "1.5e1",
                             "1e400",
                             "18446744073709551615",
                             "18446744073709551616",
                             "-9223372036854775808",
                             "true",
                             "false",
                             "True",
                             "null",
                             "0x10",
                             "nan",
                             "K\xC3\xB6ln"})
        samples.Add(std::string(text), OfText(text));
    samples.Add(std::filesystem::path("42"), OfText("42"));
    Model time = OfText("2026-03-01T12:30:00Z");
    time.Instant = 1772368200;
    samples.Add(time.Text, time);
    samples.Add(vexa::CDateTime(1772368200, 0), time);
    samples.Add(Clock::time_point(Seconds(1772368200)), time);
    Model bytes = OfText("AAEC");
    bytes.Bytes = std::string("\0\1\2", 3);
    samples.Add(bytes.Text, bytes);
    samples.Add(vexa::CBinary(*bytes.Bytes), bytes);
    samples.Add(vexa::CNumeric("12"), OfInteger(12, "12"));
    samples.Add(Seconds(90), OfInteger(90, "90"));
    Model name = OfText("green");
    name.Name = Color::green;
    samples.Add(name.Text, name);
    samples.Add(std::optional<int>(5), OfInteger(5, "5"));
    samples.Add(vexa::MayNull<int>(6), OfInteger(6, "6"));
    return samples;
}

/// The bytes that a text is in base64 (RFC 4648) without padding; nothing where it is none.
std::optional<std::string> Decoded(const std::string& text)
{
    static const std::string DIGITS = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    if (text.size() % 4 != 0) return std::nullopt;
    std::string bytes;
    unsigned int bits = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::size_t digit = DIGITS.find(text[i]);
        if (digit == std::string::npos) return std::nullopt;
        bits = bits << 6U | static_cast<unsigned int>(digit);
        if (i % 4 != 3) continue;
        for (const unsigned int shift : {16U, 8U, 0U})
            bytes += static_cast<char>(bits >> shift & 0xFFU);
        bits = 0;
    }
    return bytes;
}
Model WithBytes(Model model)
{
    if (model.What == Model::Kind::TEXT) model.Bytes = Decoded(model.Text);
    return model;
}

template<class T>
class Conversion : public testing::Test {
};
using Targets =
    testing::Types<bool, std::int8_t, unsigned char, short, unsigned short, int, unsigned int, long, unsigned long,
                   long long, unsigned long long, float, double, long double, std::string, std::filesystem::path,
                   Seconds, Clock::time_point, vexa::CDateTime, vexa::CBinary, vexa::CNumeric, Color>;
TYPED_TEST_SUITE(Conversion, Targets, );

TYPED_TEST(Conversion, GivesEveryValueWholeOrNotAtAll)
{
    const Samples samples = MakeSamples();
    for (const Sample& sample : samples.All()) {
        const std::optional<TypeParam> expected = As<TypeParam>(WithBytes(sample.Means));
        vexa::CReport report;
        const std::optional<TypeParam> got = TryGet<TypeParam>(sample.Ref, &report);
        ASSERT_EQ(expected.has_value(), got.has_value()) << sample.Name << '\n' << report;
        EXPECT_EQ(report.Problems().size(), got ? 0U : 1U) << sample.Name;
        EXPECT_TRUE(!got || IsSame(*expected, *got)) << sample.Name;
    }
}

TYPED_TEST(Conversion, SetsEveryValueWholeOrLeavesTheTarget)
{
    const Samples samples = MakeSamples();
    for (const Sample& sample : samples.All()) {
        const std::optional<TypeParam> expected = As<TypeParam>(WithBytes(sample.Means));
        TypeParam target{};
        TypeParam before{};
        if constexpr (std::is_arithmetic_v<TypeParam>) target = before = TypeParam{1};
        vexa::CReport report;
        EXPECT_EQ(expected.has_value(), TrySet(target, sample.Ref, &report)) << sample.Name << '\n' << report;
        EXPECT_EQ(report.Problems().size(), expected ? 0U : 1U) << sample.Name;
        EXPECT_TRUE(IsSame(expected ? *expected : before, target)) << sample.Name;
        if (sample.Means.What != Model::Kind::TEXT) continue;
        TypeParam other = before;
        EXPECT_EQ(expected.has_value(), TrySet(other, sample.Means.Text)) << sample.Name;
        EXPECT_TRUE(IsSame(expected ? *expected : before, other)) << sample.Name;
    }
}

template<class V>
std::string Refused(Person& person, std::string_view path, const V& value)
{
    vexa::CReport report;
    EXPECT_FALSE(Set(person, path, value, &report)) << path;
    EXPECT_FALSE(Set(person, path, value)) << path;
    return report.AsString();
}

TEST(SetByPath, RefusesWhatDoesNotFitInOneSentence)
{
    Person person;
    EXPECT_EQ(Refused(person, "age", "12abc"),
              "age: the text is not of the right form: expected an integer, found \"12abc\"\n");
    EXPECT_EQ(Refused(person, "level", 300), "level: the number does not fit: expected 0 to 255, found 300\n");
    EXPECT_EQ(Refused(person, "age", 1.5), "age: the number is not an integer: expected an integer, found 1.5\n");
    EXPECT_EQ(Refused(person, "age", true), "age: expected an integer, found true or false\n");
    EXPECT_EQ(Refused(person, "age", nullptr), "age: null is not allowed here: expected an integer, found null\n");
    EXPECT_EQ(Refused(person, "color", "gren"), "color: the name is not known: expected one of \"red\", \"green\", "
                                                "found \"gren\"; did you mean \"green\"?\n");
    EXPECT_EQ(Refused(person, "numbers[0]", "x"),
              "numbers[0]: the text is not of the right form: expected an integer, found \"x\"\n");
    EXPECT_EQ(Refused(person, "numbers", 3), "numbers: expected an array, found a number\n");
    EXPECT_EQ(Refused(person, "age", person.numbers), "age: expected int, found std::vector<int>\n");
    EXPECT_EQ(person.age, 41);
    EXPECT_EQ(person.level, 7);
    EXPECT_EQ(person.color, Color::red);
    EXPECT_EQ(person.numbers, (std::vector<int>{1, 2}));
}

TEST(SetByPath, RefusesWhatCannotBeChanged)
{
    Person person;
    const Address known;
    person.known = &known;
    const std::string sentence = ": this value cannot be changed\n";
    EXPECT_EQ(Refused(person, "fixed", 4), "fixed" + sentence);
    EXPECT_EQ(Refused(person, "known", nullptr), "known" + sentence);
    EXPECT_EQ(Refused(person, "known.zip", 4), "known.zip" + sentence);
    EXPECT_EQ(Refused(person, "locked", 4), "locked" + sentence);
    EXPECT_EQ(Refused(person, "label", "x"), "label" + sentence);
    const Person& fixed = person;
    EXPECT_FALSE(Set(vexa::CRefrence(vexa::RefOf(fixed).TypeInfor, &person), "age", 3));
    EXPECT_EQ(person.age, 41);
    EXPECT_EQ(person.locked, 9);
    EXPECT_EQ(person.known, &known);
}

TEST(SetByPath, SetsWhatPointersWrappersAndVariantsHold)
{
    Person person;
    EXPECT_TRUE(Set(person, "owned", 5));
    EXPECT_TRUE(Set(person, "maybe", "6"));
    EXPECT_TRUE(Set(person, "chosen", 7L));
    EXPECT_TRUE(Set(person, "home", Address{"Bonn", 2}));
    EXPECT_TRUE(Set(person, "work", Address{"Kiel", 3}));
    EXPECT_TRUE(Set(person, "any", Address{"Jena", 4}));
    ASSERT_TRUE(person.owned && person.home && person.work);
    EXPECT_EQ(*person.owned, 5);
    EXPECT_EQ(person.maybe.value_or(0), 6);
    EXPECT_EQ(person.chosen.value_or(0), 7);
    EXPECT_EQ(person.home->city, "Bonn");
    EXPECT_EQ(person.work->city, "Kiel");
    ASSERT_EQ(person.any.index(), 2U);
    EXPECT_EQ(std::get<2>(person.any).zip, 4);
    EXPECT_TRUE(Set(person, "any", "12"));
    EXPECT_EQ(std::get<1>(person.any), "12");
    EXPECT_TRUE(Set(person, "any", 12));
    EXPECT_EQ(std::get<0>(person.any), 12);
    EXPECT_TRUE(Set(person, "numbers", std::vector<int>{7}));
    EXPECT_EQ(person.numbers, std::vector<int>{7});
    EXPECT_TRUE(Set(person, "name", std::string("a\xFF\0b", 4))); // the bytes of a text are its own business
    EXPECT_EQ(person.name, std::string("a\xFF\0b", 4));
    EXPECT_TRUE(Set(person, "value", 2.5));
    EXPECT_EQ(person.value.As_double(), 2.5);
    EXPECT_TRUE(Set(person, "color", "green"));
    EXPECT_EQ(person.color, Color::green);
    for (const char* path : {"owned", "maybe", "chosen", "home", "work"})
        EXPECT_TRUE(Set(person, path, nullptr)) << path;
    EXPECT_FALSE(person.owned || person.maybe || person.chosen || person.home || person.work);
}

TEST(SetByPath, AFailureLeavesNothingMade)
{
    Person person;
    EXPECT_FALSE(Set(person, "owned", "x"));
    EXPECT_FALSE(Set(person, "maybe", "x"));
    EXPECT_FALSE(Set(person, "chosen", "x"));
    EXPECT_FALSE(person.owned || person.maybe || person.chosen);
    person.owned = std::make_unique<int>(4);
    int* const before = person.owned.get();
    EXPECT_FALSE(Set(person, "owned", 1e30));
    EXPECT_EQ(person.owned.get(), before);
    EXPECT_EQ(*before, 4);
}

TEST(GetByPath, GivesCopiesAndConvertedValues)
{
    Person person;
    person.home = Address{"Bonn", 2};
    EXPECT_EQ(Get<int>(person, "age"), 41);
    EXPECT_EQ(Get<std::string>(person, "age"), "41");
    EXPECT_EQ(Get<std::string>(person, "color"), "red");
    EXPECT_EQ(Get<long>(person, "color"), 1);
    EXPECT_EQ(Get<Color>(person, "color"), Color::red);
    EXPECT_EQ(Get<Address>(person, "home").value().city, "Bonn");
    EXPECT_EQ(Get<std::vector<int>>(person, "numbers"), (std::vector<int>{1, 2}));
    EXPECT_EQ(Get<std::optional<int>>(person, "chosen"), std::optional<std::optional<int>>(std::optional<int>()));
    EXPECT_EQ(Get<std::string>(person, "label"), "text");
    EXPECT_EQ(Get<int>(vexa::RefOf(person), "age"), 41);
    vexa::CReport report;
    EXPECT_EQ(Get<int>(person, "chosen", &report), std::nullopt);
    EXPECT_EQ(Get<int>(person, "name", &report), std::nullopt);
    EXPECT_EQ(Get<Address>(person, "numbers", &report).has_value(), false);
    EXPECT_EQ(Get<int>(person, "agee", &report), std::nullopt);
    EXPECT_EQ(report.AsString(), "chosen: null is not allowed here: expected an integer, found null\n"
                                 "name: the text is not of the right form: expected an integer, found \"Ann\"\n"
                                 "numbers: expected convert_shop::Address, found std::vector<int>\n"
                                 "agee: convert_shop::Person has no attribute \"agee\"; did you mean \"age\"?\n");
}

TEST(GetByPath, ShowsNothingConfidential)
{
    Person person;
    vexa::CReport report;
    EXPECT_EQ(Get<std::string>(person, "secret"), "hush");
    EXPECT_EQ(Get<int>(person, "secret", &report), std::nullopt);
    EXPECT_EQ(report.AsString(), "secret: the text is not of the right form: expected an integer\n");
    EXPECT_EQ(vexa::WriteJson(report).find("hush"), std::string::npos);
}

} // namespace
