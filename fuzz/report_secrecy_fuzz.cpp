// A text with confidential values, changed here and there: whatever is wrong with it, no form of the report tells any
// of them. The first eight bytes choose the text, the ninth the policy; then four bytes tell of each change.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "support/secret_texts.h"

namespace {

constexpr std::size_t HEAD = 9;
constexpr std::size_t CHANGE = 4;

/// Two bytes say where, one how, and one is the byte.
void Change(std::string& text, const unsigned char* change)
{
    const std::size_t at = (change[0] * 256U + change[1]) % (text.size() + 1);
    const char byte = static_cast<char>(change[3]);
    switch (change[2] % 5) {
    case 0: text.insert(at, 1, byte); break;
    case 1: text.erase(at, 1U + change[2] / 5U); break;
    case 2: text.resize(at); break;
    case 3: text.insert(at, text.substr(at, change[3])); break;
    default:
        if (at < text.size()) text[at] = byte;
    }
}

vexa::CReadPolicy PolicyOf(unsigned char choice)
{
    vexa::CReadPolicy policy;
    policy.AllowComments = (choice & 1) != 0;
    policy.AllowTrailingCommas = (choice & 2) != 0;
    policy.Transactional = (choice & 4) != 0;
    policy.MaxTextLength = (choice & 8) != 0 ? 10 : vexa::CReadPolicy::NO_LIMIT;
    policy.MaxElements = (choice & 16) != 0 ? 1 : vexa::CReadPolicy::NO_LIMIT;
    policy.MaxDepth = (choice & 32) != 0 ? 3 : 1000;
    policy.LastDuplicateWins = (choice & 64) != 0;
    return policy;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    unsigned char head[HEAD] = {};
    std::copy_n(data, std::min(size, HEAD), head);
    std::uint64_t seed = 0;
    std::memcpy(&seed, head, sizeof seed);
    vexa_test::Random random(seed);
    vexa_test::secrets::RandomVault vaults(random);
    std::string text = vaults.Text();
    for (std::size_t at = HEAD; at + CHANGE <= size && at < HEAD + 8 * CHANGE; at += CHANGE)
        Change(text, data + at);

    vexa_test::secrets::Vault vault;
    vexa::CReport report;
    vexa::ReadJson(vault, text, report, PolicyOf(head[8]));
    const std::string leak = vexa_test::secrets::LeakOf(vaults.Secrets(), report, text);
    if (!leak.empty()) {
        std::fprintf(stderr, "%s\n%s\n", leak.c_str(), text.c_str());
        std::abort();
    }
    return 0;
}
