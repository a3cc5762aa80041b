#ifndef VEXA_INTERCHANGE_PATH_H
#define VEXA_INTERCHANGE_PATH_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include <vexa/report.h>

#include "interchange/form.h"

/// \file
/// Where a walk is: a chain on the stack, one link for each object and container that the walk is inside of. It is made
/// a text only when there is a problem to tell.

namespace vexa::interchange {

enum class StepKind : unsigned char {
    NONE,
    MEMBER,
    ALIAS, ///< a member under one of its aliases
    INDEX,
    TEXT_KEY, ///< of a map, by text
    ENTRY,    ///< of a generic object or a group, by its name
    OTHER_KEY ///< of a map, by its number or the name of its value
};

/// An object or container, and how it leads on to the value that the walk is at. Sixteen bytes tell the step, so that
/// taking one costs a store or two.
struct CPathStep {
    const CPathStep* Outer = nullptr;
    StepKind Kind = StepKind::NONE;
    std::uint32_t KeyLength = 0; ///< ALIAS: which one it is
    union {
        const CMember* Member;
        std::size_t Index;
        const char* Key; ///< stays until the next step
    };

    explicit CPathStep(const CPathStep* outer = nullptr) noexcept : Outer(outer), Member(nullptr) {}

    bool IsOfMember() const noexcept { return Kind == StepKind::MEMBER || Kind == StepKind::ALIAS; }
    void To(const CMember& member) noexcept
    {
        Kind = StepKind::MEMBER;
        Member = &member;
    }
    void To(std::size_t index) noexcept
    {
        Kind = StepKind::INDEX;
        Index = index;
    }
    void To(StepKind kind, std::string_view key) noexcept
    {
        Kind = kind;
        KeyLength = static_cast<std::uint32_t>(key.size());
        Key = key.data();
    }
};

/// Notes that the text calls the member that a step leads to by a key, if that is one of its aliases.
void ToAlias(CPathStep& step, std::string_view key) noexcept;

/// The way to the innermost step as C++ writes it: `orders[2].address.zip`, `prices["apple"].net`. Both ways end at a
/// confidential attribute, whose keys and sizes are nobody's business.
std::string PathOf(const CPathStep* innermost);
/// The same as a JSON Pointer (RFC 6901), by the keys that the text has.
std::string PointerOf(const CPathStep* innermost);
/// Whether the way leads through a confidential attribute.
bool IsMasked(const CPathStep* innermost) noexcept;
/// The class of the attribute that the innermost step leads to, and that attribute; left as they are where it is none.
void TellAttribute(const CPathStep* innermost, CProblem& problem);

/// Appends the text in quotes, as JSON has it; bytes that are no UTF-8 stay.
void AppendQuoted(std::string& out, std::string_view text);

} // namespace vexa::interchange

#endif
