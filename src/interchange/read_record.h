#ifndef VEXA_INTERCHANGE_READ_RECORD_H
#define VEXA_INTERCHANGE_READ_RECORD_H

#include <map>

#include <vexa/group.h>

#include "interchange/read_basic.h"
#include "interchange/read_held.h"
#include "interchange/thrown.h"

/// \file
/// Reading values whose type the text tells, records of them, and custom types.

namespace vexa::interchange {

/// An integer is a long, or an unsigned long where it is too big for that; any other number is a double. \param isTaken
/// whether there is a value; the problem is told otherwise.
template<class Source>
bool CReader<Source>::TakeScalar(CValue& value, bool& isTaken)
{
    const EventKind kind = m_source.Peek();
    const std::size_t begin = m_source.Offset();
    isTaken = true;
    switch (kind) {
    case EventKind::NULL_VALUE: value = null; return m_source.Null() || Broken();
    case EventKind::BOOL: {
        bool truth = false;
        if (!m_source.Bool(truth)) return Broken();
        value = truth;
        return true;
    }
    case EventKind::STRING:
    case EventKind::BYTES: {
        CText text;
        if (!(kind == EventKind::STRING ? m_source.String(text) : m_source.Bytes(text))) return Broken();
        if (kind == EventKind::STRING)
            value = std::string(text.Text);
        else
            value = CBinary(text.Text.data(), text.Text.size());
        return true;
    }
    case EventKind::DATE_TIME: {
        CDateTime time;
        if (!m_source.DateTime(time)) return Broken();
        value = time;
        return true;
    }
    default: break;
    }
    if (!IsNumber(kind)) {
        isTaken = false;
        return WrongKind("a single value");
    }
    CNumber number;
    if (!m_source.Number(number)) return Broken();
    const bool isInteger =
        number.Kind == CNumber::Form::INTEGER ||
        (number.Kind == CNumber::Form::DIGITS && number.Digits.find_first_of(".eE") == std::string_view::npos);
    long whole = 0;
    unsigned long big = 0;
    double floating = 0;
    if (isInteger && ConvertNumber(number, whole) == NumberVerdict::GOOD) {
        value = whole;
    } else if (isInteger && ConvertNumber(number, big) == NumberVerdict::GOOD) {
        value = big;
    } else if (const NumberVerdict verdict = FloatingOf(number, floating); verdict == NumberVerdict::GOOD) {
        value = floating;
    } else {
        isTaken = false;
        return TellNumber(verdict, number, begin, RangeOf<double>());
    }
    return true;
}

template<class Source>
bool CReader<Source>::ReadAnyValue(CValue& value)
{
    CValue read;
    bool isTaken = false;
    if (!TakeScalar(read, isTaken)) return false;
    if (!isTaken) return true;
    if (m_context.Undo != nullptr) m_context.Undo->SaveValue(value);
    value = std::move(read);
    return true;
}

template<class Source>
bool CReader<Source>::ReadRow(CRow& row)
{
    if (m_source.Peek() != EventKind::BEGIN_ARRAY) return WrongKind("an array");
    if (m_context.Undo != nullptr)
        m_context.Undo->SaveRow(row);
    else
        row.Clear();
    if (!m_source.EnterArray()) return Broken();
    const CFreshScope fresh(m_context);
    CPathScope path(m_context);
    for (std::size_t index = 0; m_source.NextElement(); ++index) {
        path.Step.To(index);
        if (!CountOne() || !ReadAnyValue(row.Append())) return false;
    }
    return !m_source.HasFailed() || Broken();
}

/// Gives each row a value in each column; those that are null have the column's type.
inline void CompleteRows(CTable& table)
{
    for (CRow& row : table.Rows) {
        for (std::size_t i = row.Size(); i < table.Columns.size(); ++i)
            row.Append();
        for (std::size_t i = 0; i < row.Size(); ++i)
            if (row[i].IsNull()) row[i].SetNull(table.Columns[i].DataType);
    }
}

/// The columns are the keys, in the order of their first appearance; what a row lacks is null. The type of a column is
/// that of its first value that is not null.
template<class Source>
bool CReader<Source>::ReadTable(CTable& table)
{
    if (m_source.Peek() != EventKind::BEGIN_ARRAY) return WrongKind("an array");
    if (m_context.Undo != nullptr)
        m_context.Undo->SaveTable(table);
    else
        table.Clear();
    if (!m_source.EnterArray()) return Broken();
    const CFreshScope fresh(m_context);
    CPathScope path(m_context);
    bool isWhole = true;
    for (std::size_t index = 0; isWhole && m_source.NextElement(); ++index) {
        path.Step.To(index);
        isWhole = CountOne() && ReadTableRow(table);
    }
    CompleteRows(table);
    return isWhole && (!m_source.HasFailed() || Broken());
}

template<class Source>
bool CReader<Source>::ReadTableRow(CTable& table)
{
    if (m_source.Peek() != EventKind::BEGIN_OBJECT) return WrongKind("an object");
    if (!m_source.EnterObject()) return Broken();
    CRow& row = table.Append({});
    CPathScope path(m_context);
    std::vector<bool> given;
    CText key;
    for (unsigned long guess = 0; m_source.NextKey(key); ++guess) {
        std::string name(key.Text);
        const bool isGuessed = guess < table.Columns.size() && table.Columns[guess].Name == name;
        unsigned long number = isGuessed ? guess : table.ColumnIndex(name);
        if (number == CTable::NO_COLUMN) {
            number = table.Columns.size();
            table.AddColumn(Enum::DT_NULL, name);
        }
        path.Step.To(StepKind::TEXT_KEY, table.Columns[number].Name);
        if (!CountOne()) return false;
        given.resize(std::max<std::size_t>(given.size(), number + 1));
        if (given[number] && !m_context.Policy.LastDuplicateWins) {
            Tell(ProblemCode::DUPLICATE_KEY, m_source.Offset(), m_source.EndOffset(), {}, {}, Secrecy::KEY);
            if (!m_source.Skip()) return Broken();
            continue;
        }
        given[number] = true;
        while (row.Size() <= number)
            row.Append();
        if (!ReadAnyValue(row[number])) return false;
        CColumn& column = table.Columns[number];
        if (column.DataType == Enum::DT_NULL && !row[number].IsNull()) column.DataType = row[number].Type();
        guess = number;
    }
    path.Step.Kind = StepKind::NONE; // the last key is gone
    return !m_source.HasFailed() || Broken();
}

/// An object by the names of its entries, which are written through.
template<class Source>
template<class Entries>
bool CReader<Source>::ReadEntries(Entries& entries)
{
    if (m_source.Peek() != EventKind::BEGIN_OBJECT) return WrongKind("an object");
    if (!m_source.EnterObject()) return Broken();
    CPathScope path(m_context);
    std::map<const void*, std::uint32_t> firsts; // of the entries that have been given
    CText key;
    while (m_source.NextKey(key)) {
        const auto found = entries.Named.find(std::string(key.Text));
        path.Step.Kind = StepKind::NONE;
        if (found == entries.Named.end()) {
            if (!TellNoEntry(entries, key)) return false;
            continue;
        }
        path.Step.To(StepKind::ENTRY, found->first);
        std::uint32_t& first = firsts[&found->second];
        if (first != 0 && !m_context.Policy.LastDuplicateWins) {
            if (!TellDuplicate({}, first, ShortestKey(found->first, m_context.Policy.Text))) return false;
            continue;
        }
        first = FirstOf(m_source.Offset());
        const CForm form(found->second.TypeInfor, 0, nullptr);
        const CEntryScope scope(m_context, form);
        auto* const object = static_cast<char*>(found->second.Address);
        if (!(object != nullptr ? ReadValue(form, object) : Refuse(ProblemCode::CANNOT_BE_MADE))) return false;
    }
    path.Step.Kind = StepKind::NONE;
    return !m_source.HasFailed() || Broken();
}

template<class Source>
template<class Entries>
bool CReader<Source>::TellNoEntry(const Entries& entries, const CText& name)
{
    if (m_context.Policy.Unknown != UnknownKeys::SKIP) {
        CProblem problem;
        problem.Code = ProblemCode::UNKNOWN_KEY;
        if (!IsMasked(m_context.Path)) {
            CNearestName nearest(name.Text);
            for (const auto& entry : entries.Named)
                nearest.Offer(entry.first);
            problem.Attrib = name.Text;
            problem.Nearest = nearest.Name();
        }
        Tell(std::move(problem), m_source.Offset(), m_source.EndOffset(), Secrecy::KEY);
    }
    return m_source.Skip() || Broken();
}

/// A custom type over a standard value is read as that one, where it lies; any other by its converter.
template<class Source>
bool CReader<Source>::ReadCustom(const CForm& form, char* place)
{
    const CCustomBasicTypeInfor& infor = form.CustomInfor();
    if (infor.Underlying.DataType != Enum::DT_UNKNOWN && infor.ValueOffset >= 0) {
        const CForm standard(infor.Underlying, static_cast<unsigned long>(infor.ValueOffset), nullptr);
        return ReadValue(standard, place);
    }
    const bool isReturnable = m_context.Undo == nullptr || infor.ToValue != nullptr;
    if (infor.FromValue == nullptr || !isReturnable) return Refuse(ProblemCode::CANNOT_BE_MADE);
    m_source.Peek();
    const std::size_t begin = m_source.Offset();
    CValue value;
    bool isTaken = false;
    if (!TakeScalar(value, isTaken)) return false;
    if (!isTaken) return true;
    try {
        if (m_context.Undo != nullptr) m_context.Undo->SaveConverted(infor, place);
        infor.FromValue(place, value);
    } catch (...) {
        Tell(ProblemCode::CONVERTER_FAILED, begin, m_source.EndOffset(), {}, WhatIsThrown());
    }
    return true;
}

} // namespace vexa::interchange

#endif
