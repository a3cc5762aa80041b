// Every allocation of the first use of a type fails in turn, each in a process of its own: the exception comes out, the
// global lock is free, nothing is left behind, and the next use gives whole descriptors.

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <thread>
#include <utility>

#include <vexa/vexa.h>

#include "support/counted_allocation.h"

// All of it runs before the descriptions below take effect by themselves.
int RunAll();
const int g_result = RunAll();

namespace allocation_failure {

/// Names too long to lie inside a std::string, so that each costs an allocation.
struct WrappedTextOfATag {
    std::string text;
};
VEXA_DESCRIBE_CUSTOM_STD(WrappedTextOfATag, &WrappedTextOfATag::text)

struct WholeWithLongName;
struct TaggedWithLongName {
    short kindOfTheTaggedThing = 1;
};
struct BaseWithLongName {
    long beforeTheKindOfTheBase = 0;
    short kindOfTheTaggedThing = 0;
    union {
        int codeOfTheBaseThing = 5;
        double rateOfTheBaseThing;
    };
};
struct PartWithLongName {
    int numberInsideThePart = 1;
    WholeWithLongName* wholeOfThePart = nullptr;
};
struct WholeWithLongName : TaggedWithLongName, BaseWithLongName {
    PartWithLongName partHeldByValue;
    std::vector<PartWithLongName> partsInAVector;
    std::map<std::string, std::unique_ptr<PartWithLongName>> partsByTheirName;
    vexa::MayNull<WrappedTextOfATag> tagThatMayBeNull;
    int numbersInAnArray[2] = {1, 2};
};
VEXA_DESCRIBE_CLASS(WholeWithLongName)
{
    about.Base<TaggedWithLongName>();
    about.Base<BaseWithLongName>();
    about.KeyStyle(vexa::KeyStyle::KEBAB);
    about.Check([](const WholeWithLongName&) { return true; }, "what is wrong with the whole");
    about.Attrib("partHeldByValue", &WholeWithLongName::partHeldByValue).ID(100);
    about.Attrib("partsInAVector", &WholeWithLongName::partsInAVector).ID(3);
    about.Attrib("partsByTheirName", &WholeWithLongName::partsByTheirName);
    about.Attrib("tagThatMayBeNull", &WholeWithLongName::tagThatMayBeNull);
    about.Attrib("numbersInAnArray", &WholeWithLongName::numbersInAnArray);
}
VEXA_DESCRIBE(TaggedWithLongName, kindOfTheTaggedThing)
VEXA_DESCRIBE_CLASS(BaseWithLongName)
{
    about.Tag("theTagOfTheBaseWithLongName");
    about.Attrib("beforeTheKindOfTheBase", &BaseWithLongName::beforeTheKindOfTheBase)
        .Key("theKeyOfTheFirstAttribute")
        .Alias("anotherKeyOfTheFirstAttribute");
    about.Attrib("kindOfTheTaggedThing", &BaseWithLongName::kindOfTheTaggedThing);
    about.Attrib("codeOfTheBaseThing", &BaseWithLongName::codeOfTheBaseThing).ActiveWhen("kindOfTheTaggedThing", 0);
    about.Attrib("rateOfTheBaseThing", &BaseWithLongName::rateOfTheBaseThing).ActiveWhen("kindOfTheTaggedThing", 1);
}
VEXA_DESCRIBE(PartWithLongName, numberInsideThePart, wholeOfThePart)

/// A class registered by hand.
vexa::CClassInfor* s_byHand = nullptr;
bool s_isDescribing = false;

void DescribeByHand(vexa::CClassInfor& about, vexa::Enum::AccessSpecifierEnum access)
{
    s_isDescribing = true;
    about.AddAttribInfor(access, 0, "numberOfTheHandMadeClass", 2).TypeInfor = vexa::CGnlTypeInfor(vexa::Enum::DT_INT);
    s_isDescribing = false;
}

/// Two classes registered by hand that point at one another. The inner one is finished first, while only the outer one
/// still meets failures.
vexa::CClassInfor* s_outer = nullptr;
vexa::CClassInfor* s_inner = nullptr;
const vexa::CClassInfor* Outer();

vexa::CGnlTypeInfor PointerTo(const vexa::CClassInfor* pointee)
{
    return vexa::CGnlTypeInfor(vexa::Enum::DT_CLASS, vexa::Enum::HF_POINTER | vexa::Enum::HF_NULLABLE, pointee);
}

void DescribeInner(vexa::CClassInfor& about, vexa::Enum::AccessSpecifierEnum access)
{
    vexa::TypeInforOf<std::vector<PartWithLongName>>();
    about.AddAttribInfor(access, 0, "pointerToTheOuterClass", -1).TypeInfor = PointerTo(Outer());
}

void DescribeOuter(vexa::CClassInfor& about, vexa::Enum::AccessSpecifierEnum access)
{
    const long failing = std::exchange(vexa_test::s_untilFailure, 0);
    const auto* const inner =
        vexa::CClassInfor::InitClassInfor(s_inner, "TheInnerOfTwoClasses", 8, nullptr, nullptr, &DescribeInner);
    about.AddAttribInfor(access, 0, "pointerToTheInnerClass", 70).TypeInfor = PointerTo(inner);
    vexa_test::s_untilFailure = failing;
}

const vexa::CClassInfor* Outer()
{
    return vexa::CClassInfor::InitClassInfor(s_outer, "TheOuterOfTwoClasses", 8, nullptr, nullptr, &DescribeOuter);
}

/// Whether the two know one another, or neither is there.
bool IsRingWhole()
{
    if (s_outer == nullptr || s_inner == nullptr) return s_outer == s_inner;
    return s_outer->AttribList.front().TypeInfor.DetailInfor == s_inner &&
           s_inner->AttribList.front().TypeInfor.DetailInfor == s_outer;
}

} // namespace allocation_failure

namespace {

using namespace allocation_failure;

std::string NamesOf(const vexa::CClassInfor& infor)
{
    std::string names = infor.Name + ':';
    for (const vexa::CAttribInfor& record : infor.AttribList)
        names += ' ' + record.Name + '@' + std::to_string(record.Offset) + '=' + record.TypeInfor.TypeName() + '/' +
                 vexa::MetadataOf(infor, record).Key;
    for (const auto& [flatName, entry] : infor.FlatAttribMap)
        names += ' ' + flatName;
    const vexa::CClassInfor* const found = vexa::FindClass(vexa::QualifiedNameOf(infor));
    return names + ' ' + vexa::MetadataOf(infor).TagValue + (found == &infor ? "" : " is not found") + '\n';
}

void UseWhole() { vexa::ClassInforOf<WholeWithLongName>(); }
void UsePart() { vexa::ClassInforOf<PartWithLongName>(); }
void UseVector() { vexa::TypeInforOf<std::vector<std::vector<WholeWithLongName>>>(); }
void UseCustom() { vexa::TypeInforOf<WrappedTextOfATag>(); }
void UseByHand()
{
    vexa::CClassInfor::InitClassInfor(s_byHand, "ClassThatIsMadeByHand", 4, nullptr, nullptr, &DescribeByHand);
}
void UseOuter() { Outer(); }

using Use = void (*)();
constexpr Use USES[] = {&UseWhole, &UsePart, &UseVector, &UseCustom, &UseByHand, &UseOuter};

/// Uses everything, and tells what it is.
std::string TextOfAll()
{
    UseByHand();
    UseOuter();
    return NamesOf(vexa::ClassInforOf<WholeWithLongName>()) + NamesOf(vexa::ClassInforOf<PartWithLongName>()) +
           vexa::TypeInforOf<std::vector<std::vector<WholeWithLongName>>>().TypeName() + '\n' +
           vexa::TypeInforOf<WrappedTextOfATag>().TypeName() + '\n' + NamesOf(*s_byHand) + NamesOf(*s_outer) +
           NamesOf(*s_inner) + (IsRingWhole() ? "" : "two descriptors of one class\n");
}

constexpr int DONE = 0, WRONG = 1, NO_FAILURE = 2;

int Wrong(const char* what, long failing)
{
    std::fprintf(stderr, "allocation %ld: %s\n", failing, what);
    return WRONG;
}

/// Whether another thread can take the lock; hangs until the alarm where it cannot.
void TakeLockElsewhere()
{
    std::thread([] {
        vexa::helper::Acquire_Recursive_Thread_Mutex();
        vexa::helper::Release_Recursive_Thread_Mutex();
    }).join();
}

/// Room that the library keeps for as long as the process lives: for the selectors that classes hide, and for the
/// classes in progress.
void MakeWhatIsMadeOnce()
{
    static vexa::CClassInfor* other = nullptr;
    vexa::CClassInfor::InitClassInfor(other, "", 0, nullptr, nullptr,
                                      [](vexa::CClassInfor&, vexa::Enum::AccessSpecifierEnum) {});
    vexa::CClassInfor hiding;
    hiding.AddAttribInfor(vexa::Enum::AS_PUBLIC, 0, "kind", -1);
    const vexa::CAttribInfor& hidden = hiding.AddAttribInfor(vexa::Enum::AS_PUBLIC, 2, "kind", -1);
    hiding.AddAttribInfor(vexa::Enum::AS_PUBLIC, 4, "member", -1).UnionSelector = &hidden;
    hiding.CreateIndex();
}

/// One process: the allocation with this number fails in the first use.
int RunCase(Use use, long failing, const std::string& expected)
{
    alarm(60);
    MakeWhatIsMadeOnce();
    const long before = vexa_test::s_live;
    bool isThrown = false;
    try {
        vexa_test::s_untilFailure = failing;
        use();
    } catch (const std::bad_alloc&) {
        isThrown = true;
    }
    const bool isReached = vexa_test::s_untilFailure == 0;
    vexa_test::s_untilFailure = 0;
    if (!isReached) return NO_FAILURE;
    if (!isThrown) return Wrong("no exception came out", failing);
    if (s_isDescribing) return DONE; // the describing function has thrown: the lock stays held
    if (!IsRingWhole()) return Wrong("a class refers to one that is gone", failing);
    if (vexa_test::s_live > before) return Wrong("something was left behind", failing);
    TakeLockElsewhere();
    if (TextOfAll() != expected) return Wrong("the next use gives something else", failing);
    return DONE;
}

/// \return what the function gives, in a process of its own.
template<class Run>
int InOwnProcess(Run run)
{
    const pid_t child = fork();
    if (child == 0) _exit(run());
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : WRONG;
}

std::string ExpectedText()
{
    int ends[2];
    if (pipe(ends) != 0) return {};
    InOwnProcess([&] {
        const std::string text = TextOfAll();
        return write(ends[1], text.data(), text.size()) == static_cast<ssize_t>(text.size()) ? DONE : WRONG;
    });
    close(ends[1]);
    std::string text(65536, '\0');
    const ssize_t length = read(ends[0], text.data(), text.size());
    text.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    close(ends[0]);
    return text;
}

} // namespace

int RunAll()
{
    const std::string expected = ExpectedText();
    if (expected.empty() || expected.find("two descriptors") != std::string::npos)
        return Wrong("nothing is described well at all", 0);
    for (const Use use : USES) {
        long failing = 1;
        int result = DONE;
        while ((result = InOwnProcess([&] { return RunCase(use, failing, expected); })) == DONE)
            ++failing;
        if (result != NO_FAILURE) return Wrong("this case failed", failing);
        std::printf("%ld allocations failed in turn\n", failing - 1);
        if (failing == 1) return Wrong("nothing was allocated", 0);
    }
    return DONE;
}

int main() { return g_result; }
