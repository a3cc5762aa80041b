#include "interchange/path.h"

#include <algorithm>
#include <vector>

namespace vexa::interchange {

namespace {

/// Calls \p use with each step from the outermost on, up to the first confidential attribute.
template<class Use>
void ForEachStep(const CPathStep* innermost, Use use)
{
    std::vector<const CPathStep*> steps;
    for (const CPathStep* step = innermost; step != nullptr; step = step->Outer)
        if (step->Kind != StepKind::NONE) steps.push_back(step);
    std::reverse(steps.begin(), steps.end());
    for (const CPathStep* const step : steps) {
        use(*step);
        if (step->IsOfMember() && step->Member->IsMasked) return;
    }
}

std::string_view KeyOf(const CPathStep& step) { return {step.Key, step.KeyLength}; }

void AppendToPath(std::string& path, const CPathStep& step)
{
    switch (step.Kind) {
    case StepKind::MEMBER:
    case StepKind::ALIAS:
        if (!path.empty()) path += '.';
        path.append(step.Member->Holders).append(step.Member->Infor->Name);
        return;
    case StepKind::INDEX: path += '[' + std::to_string(step.Index) + ']'; return;
    case StepKind::TEXT_KEY:
    case StepKind::ENTRY:
        path += '[';
        AppendQuoted(path, KeyOf(step));
        path += ']';
        return;
    case StepKind::OTHER_KEY: path.append("[").append(KeyOf(step)).append("]"); return;
    case StepKind::NONE: return;
    }
}

/// What the text calls the value that a step leads to.
std::string TokenOf(const CPathStep& step)
{
    switch (step.Kind) {
    case StepKind::MEMBER: return step.Member->Key;
    case StepKind::ALIAS: return step.Member->Notes->Aliases[step.KeyLength];
    case StepKind::INDEX: return std::to_string(step.Index);
    default: return std::string(KeyOf(step));
    }
}

void AppendToken(std::string& pointer, std::string_view token)
{
    pointer += '/';
    for (const char byte : token) {
        if (byte == '~')
            pointer += "~0";
        else if (byte == '/')
            pointer += "~1";
        else
            pointer += byte;
    }
}

} // namespace

void ToAlias(CPathStep& step, std::string_view key) noexcept
{
    const std::vector<std::string>& aliases = step.Member->Notes->Aliases;
    const auto alias = std::find(aliases.begin(), aliases.end(), key);
    if (alias == aliases.end()) return;
    step.Kind = StepKind::ALIAS;
    step.KeyLength = static_cast<std::uint32_t>(alias - aliases.begin());
}

std::string PathOf(const CPathStep* innermost)
{
    std::string path;
    ForEachStep(innermost, [&path](const CPathStep& step) { AppendToPath(path, step); });
    return path;
}

std::string PointerOf(const CPathStep* innermost)
{
    std::string pointer;
    ForEachStep(innermost, [&pointer](const CPathStep& step) { AppendToken(pointer, TokenOf(step)); });
    return pointer;
}

bool IsMasked(const CPathStep* innermost) noexcept
{
    for (const CPathStep* step = innermost; step != nullptr; step = step->Outer)
        if (step->IsOfMember() && step->Member->IsMasked) return true;
    return false;
}

void TellAttribute(const CPathStep* innermost, CProblem& problem)
{
    if (innermost == nullptr || !innermost->IsOfMember()) return;
    problem.Class = typeinfo::QualifiedNameOf(*innermost->Member->Owner);
    problem.Attrib = innermost->Member->Infor->Name;
}

void AppendQuoted(std::string& out, std::string_view text)
{
    static constexpr char DIGITS[] = "0123456789abcdef";
    out += '"';
    for (const char byte : text) {
        const auto code = static_cast<unsigned char>(byte);
        if (code < 0x20) {
            out += {'\\', 'u', '0', '0', DIGITS[code >> 4], DIGITS[code & 0xF]};
            continue;
        }
        if (byte == '"' || byte == '\\') out += '\\';
        out += byte;
    }
    out += '"';
}

} // namespace vexa::interchange
