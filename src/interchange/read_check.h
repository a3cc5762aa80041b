#ifndef VEXA_INTERCHANGE_READ_CHECK_H
#define VEXA_INTERCHANGE_READ_CHECK_H

#include "interchange/read_bound.h"
#include "interchange/read_problem.h"
#include "interchange/thrown.h"

/// \file
/// What a description demands of values that have been read.

namespace vexa::interchange {

/// \param begin where the value begins in the text. The value stays as it was read.
template<class Source>
void CReader<Source>::CheckMember(const CMember& member, char* object, std::size_t begin)
{
    CBoundProblem found = CheckBounds(m_context.Forms, member, object);
    if (found.Code == ProblemCode::NONE) return;
    const std::size_t end = found.IsContainer ? begin + 1 : m_source.EndOffset();
    Tell(found.Code, begin, end, std::move(found.Expected), std::move(found.Found), Secrecy::PLAIN);
}

/// The checks of the class and of the flattened ones inside it, unless the object has a problem already.
template<class Source>
__attribute__((noinline)) void CReader<Source>::CheckObject(const CObjectFrame& frame)
{
    const auto check = [&](const CClassInfor& infor, const char* object, Secrecy secrecy) {
        const typeinfo::CClassNotes* const notes = typeinfo::NotesOf(infor);
        if (notes == nullptr || notes->Checks.empty() || m_context.Problems != frame.Before) return;
        std::string complaint;
        try {
            complaint = typeinfo::FirstComplaint(*notes, object);
        } catch (...) {
            complaint = WhatIsThrown();
            if (complaint.empty()) complaint = "an exception";
        }
        if (complaint.empty()) return;
        CProblem problem;
        problem.Code = ProblemCode::CHECK_FAILED;
        problem.Class = typeinfo::QualifiedNameOf(infor);
        problem.Found = std::move(complaint);
        Tell(std::move(problem), frame.Brace, frame.Brace + 1, secrecy);
    };
    for (const CFlattened& flattened : frame.Form.Flattened)
        check(*flattened.Infor, frame.Object + flattened.Offset, flattened.IsMasked ? Secrecy::HIDDEN : Secrecy::PLAIN);
    check(*frame.Form.Infor, frame.Object, Secrecy::PLAIN);
}

} // namespace vexa::interchange

#endif
