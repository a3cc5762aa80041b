// The names of types as GCC and Clang write them, brought to one form.

#include "typeinfo/qualified_name.h"

#include <gtest/gtest.h>

namespace {

using vexa::typeinfo::NormalizedName;
using vexa::typeinfo::QualifiedName;

struct Spellings {
    const char *gcc, *clang, *name;
};

class QualifiedNames : public testing::TestWithParam<Spellings> {};

TEST_P(QualifiedNames, AreTheSameOfBothCompilers)
{
    const auto& [gcc, clang, name] = GetParam();
    EXPECT_EQ(QualifiedName("constexpr const char* vexa::detail::Spelled() [with T = " + std::string(gcc) + "]"), name);
    EXPECT_EQ(QualifiedName("const char *vexa::detail::Spelled() [T = " + std::string(clang) + "]"), name);
    EXPECT_EQ(NormalizedName(gcc), name);
    EXPECT_EQ(NormalizedName(clang), name);
    EXPECT_EQ(NormalizedName(name), name);
}

constexpr Spellings SPELLINGS[] = {
    {"Place", "Place", "Place"},
    {"shop::Circle", "shop::Circle", "shop::Circle"},
    {"shop::Outer::Inner", "shop::Outer::Inner", "shop::Outer::Inner"},
    {"{anonymous}::deep::Z", "(anonymous namespace)::deep::Z", "(anonymous namespace)::deep::Z"},
    {"shop::{anonymous}::Z", "shop::(anonymous namespace)::Z", "shop::(anonymous namespace)::Z"},
    {"shop::Box<{anonymous}::Z>", "shop::Box<(anonymous namespace)::Z>", "shop::Box<(anonymous namespace)::Z>"},
    {"shop::Box<const {anonymous}::Z>", "shop::Box<const (anonymous namespace)::Z>",
     "shop::Box<const (anonymous namespace)::Z>"},
    {"shop::Box<std::__cxx11::basic_string<char> >", "shop::Box<std::basic_string<char>>", "shop::Box<std::string>"},
    {"Box<std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> > >::In",
     "Box<std::basic_string<char>>::In", "Box<std::string>::In"},
    {"Box<std::__cxx11::basic_string<wchar_t, std::char_traits<wchar_t>, std::allocator<wchar_t> > >",
     "Box<std::basic_string<wchar_t>>", "Box<std::wstring>"},
    {"Box<std::map<int, std::vector<long int, std::allocator<long int> >, std::less<int>, "
     "std::allocator<std::pair<const int, std::vector<long int, std::allocator<long int> > > > > >",
     "Box<std::map<int, std::vector<long>>>", "Box<std::map<int, std::vector<long>>>"},
    {"Box<std::map<int, int, std::greater<int>, std::allocator<std::pair<const int, int> > > >",
     "Box<std::map<int, int, std::greater<int>>>", "Box<std::map<int, int, std::greater<int>>>"},
    {"Box<std::unique_ptr<int, std::default_delete<int> > >", "Box<std::unique_ptr<int>>", "Box<std::unique_ptr<int>>"},
    {"Two<int, std::less<int> >", "Two<int, std::less<int>>", "Two<int, std::less<int>>"},
    {"N<long unsigned int, long long int, short unsigned int, long double, signed char, unsigned int>",
     "N<unsigned long, long long, unsigned short, long double, signed char, unsigned int>",
     "N<unsigned long, long long, unsigned short, long double, signed char, unsigned int>"},
    {"N<long long unsigned int, short int, long int, unsigned char, double, char, int, bool>",
     "N<unsigned long long, short, long, unsigned char, double, char, int, bool>",
     "N<unsigned long long, short, long, unsigned char, double, char, int, bool>"},
    {"N<const char*, int&, int&&, int* const, const int* const>",
     "N<const char *, int &, int &&, int *const, const int *const>",
     "N<const char*, int&, int&&, int*const, const int*const>"},
    {"N<int [3], int (*)(long int, char), void(), int shop::Circle::*>",
     "N<int[3], int (*)(long, char), void (), int shop::Circle::*>",
     "N<int[3], int(*)(long, char), void(), int shop::Circle::*>"},
    {"N<4, -3, true, 'x', ',', '\\'', Co::g>", "N<4UL, -3, true, 'x', ',', '\\'', Co::g>",
     "N<4, -3, true, 'x', ',', '\\'', Co::g>"},
    {"N<>", "N<>", "N<>"},
    {"N<N<> >", "N<N<>>", "N<N<>>"},
    {"unsignedness::Longer<integer>", "unsignedness::Longer<integer>", "unsignedness::Longer<integer>"},
};
INSTANTIATE_TEST_SUITE_P(Spellings, QualifiedNames, testing::ValuesIn(SPELLINGS));

TEST(NormalizedName, LeavesWhatIsNoTypeAsItIs)
{
    for (const char* const text : {"", "Box<int", "Box<int>>", "a)b", "Box<(int>", "a, b", "x;", "'", "Box<'"})
        EXPECT_EQ(NormalizedName(text), text);
    const std::string deep(100000, '<');
    EXPECT_EQ(NormalizedName(deep), deep);
}

TEST(NormalizedName, EndsWhereTheCompilerExplainsMore)
{
    EXPECT_EQ(QualifiedName("auto f() [with T = Box<int>; std::string = std::basic_string<char>]"), "Box<int>");
    EXPECT_EQ(QualifiedName("no type here"), "");
}

} // namespace
