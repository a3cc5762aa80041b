#ifndef VEXA_TESTS_SUPPORT_SECRET_LEAKS_H
#define VEXA_TESTS_SUPPORT_SECRET_LEAKS_H

#include <string>
#include <vector>

#include <vexa/interchange.h>
#include <vexa/json_tree.h>

/// The search for confidential words in a report.

namespace vexa_test::secrets {

/// A word that is confidential, and all that stands between the key of the attribute that makes it so and its end.
struct CSecret {
    std::string Word;
    std::string Context;
};

/// So many bytes of a secret one behind the other give it away.
inline constexpr std::size_t TELLING = 6;

inline std::size_t CountOf(const std::string& text, const std::string& part)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

/// Whether brackets that are missing may have made a key inside a confidential attribute one of another object's.
inline bool IsStrayKey(const std::string& text, const std::string& word)
{
    if (text.find('"' + word + "\":") == std::string::npos) return false;
    vexa::CJsonTree tree;
    vexa::CReport report;
    return !vexa::ReadJson(tree, text, report);
}

/// Whether the word still stands where it is confidential, and nowhere else: a changed text may give it away itself.
inline bool IsStillSecret(const std::string& text, const CSecret& secret)
{
    if (IsStrayKey(text, secret.Word)) return false;
    const std::size_t count = CountOf(text, secret.Context);
    for (std::size_t i = 0; i + TELLING <= secret.Word.size(); ++i) {
        if (CountOf(text, secret.Word.substr(i, TELLING)) != count) return false;
    }
    return count > 0;
}

/// Everything that a report says, in every form.
inline std::vector<std::string> AllTexts(const vexa::CReport& report, const std::string& text)
{
    std::vector<std::string> all = {report.AsString(), report.AsString(text), vexa::WriteJson(report)};
    for (const vexa::CProblem& problem : report.Problems()) {
        all.insert(all.end(), {problem.Path, problem.Pointer, problem.Class, problem.Attrib, problem.Expected,
                               problem.Found, problem.Nearest, problem.Excerpt, problem.Sentence()});
    }
    return all;
}

/// The first text in which six bytes of the secret stand one behind the other; empty if there is none.
inline std::string FindLeak(const std::vector<std::string>& texts, const std::string& word)
{
    for (const std::string& text : texts) {
        for (std::size_t i = 0; i + TELLING <= word.size(); ++i) {
            if (text.find(word.substr(i, TELLING)) != std::string::npos) return text;
        }
    }
    return "";
}

/// What of a text's secrets stands in the report of reading it; empty if nothing does.
inline std::string LeakOf(const std::vector<CSecret>& secrets, const vexa::CReport& report, const std::string& text)
{
    const std::vector<std::string> all = AllTexts(report, text);
    for (const CSecret& secret : secrets) {
        if (!IsStillSecret(text, secret)) continue;
        const std::string leak = FindLeak(all, secret.Word);
        if (!leak.empty()) return secret.Word + " in: " + leak;
    }
    return "";
}

} // namespace vexa_test::secrets

#endif
