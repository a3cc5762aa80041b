#ifndef VEXA_INTERCHANGE_WRITE_RECORD_H
#define VEXA_INTERCHANGE_WRITE_RECORD_H

#include <algorithm>
#include <vector>

#include <vexa/custom_type_infor.h>

#include "interchange/thrown.h"
#include "interchange/write_walk.h"
#include "reference/custom_value.h"

/// \file
/// What is put together at run time (values, rows, tables, groups), and custom types, which say themselves what they
/// are.

namespace vexa::interchange {

template<class Sink>
typename Sink::Cursor CWritingWalk<Sink>::OfValue(Cursor at, const CValue& value, CWriteFrame& outer)
{
    if (value.IsNull()) return m_sink.Null(at);
    const CForm form(value.TypeInfor, 0, nullptr);
    return Holder(at, form, value.Address, outer);
}

template<class Sink>
typename Sink::Cursor CWritingWalk<Sink>::Row(Cursor at, const CRow& row, CWriteFrame& outer)
{
    CWriteFrame frame(outer, &row, nullptr);
    if (!IsEntered(frame, false)) return NotEntered(at, frame);
    at = m_sink.BeginArray(at, row.Size());
    for (std::size_t i = 0; i < row.Size(); ++i) {
        frame.To(i);
        at = OfValue(m_sink.Element(at), row[i], frame);
    }
    return m_sink.EndArray(at);
}

/// The numbers of the columns that are written, in order. A name that comes again would be a key twice.
template<class Sink>
std::vector<std::size_t> CWritingWalk<Sink>::ColumnsOf(const CTable& table, CWriteFrame& frame)
{
    std::vector<std::size_t> columns;
    for (std::size_t i = 0; i < table.Columns.size(); ++i) {
        if (table.ColumnIndex(table.Columns[i].Name) == i)
            columns.push_back(i);
        else
            m_context.Tell(ProblemCode::DUPLICATE_KEY, frame, "columns of different names", table.Columns[i].Name);
    }
    if (m_context.Policy().SortKeys)
        std::sort(columns.begin(), columns.end(), [&table](std::size_t left, std::size_t right) {
            return table.Columns[left].Name < table.Columns[right].Name;
        });
    return columns;
}

template<class Sink>
typename Sink::Cursor CWritingWalk<Sink>::Table(Cursor at, const CTable& table, CWriteFrame& outer)
{
    CWriteFrame frame(outer, &table, nullptr);
    if (!IsEntered(frame, false)) return NotEntered(at, frame);
    const std::vector<std::size_t> columns = ColumnsOf(table, outer);
    at = m_sink.BeginArray(at, table.Rows.size());
    for (std::size_t i = 0; i < table.Rows.size(); ++i) {
        frame.To(i);
        at = TableRow(m_sink.Element(at), table, table.Rows[i], columns, frame);
    }
    return m_sink.EndArray(at);
}

/// A value that the row lacks is null; one behind the last column has no name.
template<class Sink>
typename Sink::Cursor CWritingWalk<Sink>::TableRow(Cursor at, const CTable& table, const CRow& row,
                                                   const std::vector<std::size_t>& columns, CWriteFrame& outer)
{
    CWriteFrame frame(outer, &row, nullptr);
    if (!IsEntered(frame, false)) return NotEntered(at, frame);
    if (row.Size() > table.Columns.size())
        m_context.Tell(ProblemCode::CANNOT_BE_WRITTEN, outer, "a column for every value");
    at = m_sink.BeginObject(at, columns.size());
    for (const std::size_t column : columns) {
        const std::string& name = table.Columns[column].Name;
        frame.To(StepKind::TEXT_KEY, name);
        at = m_sink.Key(at, name, frame);
        at = column < row.Size() ? OfValue(at, row[column], frame) : m_sink.Null(at);
    }
    return m_sink.EndObject(at);
}

/// The named entries; the others have no keys. Entries are references, so they may lead back to the group.
template<class Sink>
template<class NamedEntries>
typename Sink::Cursor CWritingWalk<Sink>::Group(Cursor at, const NamedEntries& group, const CForm& form,
                                                CWriteFrame& outer)
{
    CWriteFrame frame(outer, &group, form.Type->DetailInfor);
    if (!IsEntered(frame, true)) return NotEntered(at, frame);
    at = m_sink.BeginObject(at, group.Named.size());
    for (const auto& [name, ref] : group.Named) {
        frame.To(StepKind::TEXT_KEY, name);
        at = Referenced(m_sink.Key(at, name, frame), ref, frame);
    }
    return m_sink.EndObject(at);
}

template<class Sink>
__attribute__((noinline)) typename Sink::Cursor CWritingWalk<Sink>::Referenced(Cursor at, const CConstRefrence& ref,
                                                                               CWriteFrame& outer)
{
    if (ref.Address == nullptr) return m_sink.Null(at);
    const CForm form(ref.TypeInfor, 0, nullptr);
    return Holder(at, form, ref.Address, outer);
}

template<class Sink>
typename Sink::Cursor CWritingWalk<Sink>::Custom(Cursor at, const CForm& form, const char* value, CWriteFrame& outer)
{
    const CCustomBasicTypeInfor& infor = form.CustomInfor();
    if (reference::HasOwnLayout(*form.Type)) return Converted(at, infor, value, outer);
    if (infor.Underlying.DataType == Enum::DT_UNKNOWN) return Unsupported(at, form, outer);
    return Referenced(at, {infor.Underlying, value + infor.ValueOffset}, outer);
}

/// The converter is the application's own, and may throw.
template<class Sink>
__attribute__((noinline)) typename Sink::Cursor
CWritingWalk<Sink>::Converted(Cursor at, const CCustomBasicTypeInfor& infor, const char* value, CWriteFrame& outer)
{
    CValue converted;
    try {
        if (infor.ToValue != nullptr) infor.ToValue(value, converted);
    } catch (...) {
        m_context.Tell(ProblemCode::CONVERTER_FAILED, outer, {}, WhatIsThrown());
        return m_sink.Null(at);
    }
    return OfValue(at, converted, outer);
}

} // namespace vexa::interchange

#endif
