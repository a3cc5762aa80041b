// Reads arbitrary bytes as standard JSON into an object of a described class. The first byte chooses the class, the
// second the policy. Whatever the text, the object must stay usable; after a problem, a transactional reading leaves it
// as it was; and what is written of an object reads back as the same.

#include <algorithm>
#include <cstdlib>

#include <vexa/interchange.h>

#include "support/described_everything.h"

namespace {

using namespace vexa_test::everything;

void Expect(bool isRight)
{
    if (!isRight) std::abort();
}

template<class T>
void ExpectSame(const T& left, const T& right)
{
    Comparison comparison;
    Expect(Same(comparison, left, right));
}

vexa::CReadPolicy PolicyOf(unsigned char choice)
{
    vexa::CReadPolicy policy;
    policy.Unknown = (choice & 1) != 0 ? vexa::UnknownKeys::SKIP : vexa::UnknownKeys::BY_CLASS;
    policy.LastDuplicateWins = (choice & 2) != 0;
    policy.AllowComments = (choice & 4) != 0;
    policy.AllowTrailingCommas = (choice & 8) != 0;
    policy.AllowNan = (choice & 16) != 0;
    policy.Text = static_cast<vexa::BadText>((choice >> 5) % 3);
    return policy;
}

/// What was written without a problem reads back as the same value. The order of what is hashed may be another; a null
/// tree and none are the same text.
template<class T>
void WriteAndReadAgain(const T& object)
{
    vexa::CReport report;
    const std::string written = vexa::WriteJson(object, {}, &report);
    if (!report.IsEmpty()) return; // what has no form
    T again;
    if (!vexa::ReadJson(again, written, report)) return; // what reading refuses for its meaning
    Comparison comparison(Comparison::Digits::WORTH_THE_SAME);
    Expect(vexa::WriteJson(again) == written || Same(comparison, again, object));
}

template<class T>
void Read(const std::string& text, const vexa::CReadPolicy& plain)
{
    const auto object = MakeRandom<T>(text.size());
    vexa::CReport report;
    const bool isRead = vexa::ReadJson(*object, text, report, plain);
    Expect(isRead == report.IsEmpty());
    report.AsString(text);
    WriteAndReadAgain(*object);

    const auto guarded = MakeRandom<T>(text.size());
    vexa::CReadPolicy policy = plain;
    policy.Transactional = true;
    vexa::CReport again;
    Expect(vexa::ReadJson(*guarded, text, again, policy) == isRead);
    if (!isRead) ExpectSame(*guarded, *MakeRandom<T>(text.size()));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    constexpr std::size_t HEAD = 2;
    unsigned char head[HEAD] = {};
    std::copy_n(data, std::min(size, HEAD), head);
    const std::string text(data + std::min(size, HEAD), data + size);
    const vexa::CReadPolicy policy = PolicyOf(head[1]);
    unsigned int count = 0, number = 0;
    ForEachClass([&count](auto) { ++count; });
    const unsigned int chosen = head[0] % count;
    ForEachClass([&](auto tag) {
        if (number++ == chosen) Read<typename decltype(tag)::Type>(text, policy);
    });
    return 0;
}
