#include "live_table.h"

#include <chrono>

namespace vexa::sqlite {

namespace {

const char* NameOf(Affinity type)
{
    switch (type) {
    case Affinity::INTEGER: return " INTEGER";
    case Affinity::REAL: return " REAL";
    case Affinity::TEXT: return " TEXT";
    case Affinity::BLOB: return " BLOB";
    default: return "";
    }
}

/// As SQL writes a name.
std::string Quoted(const std::string& name)
{
    std::string quoted = "\"";
    for (const char byte : name)
        quoted.append(byte == '"' ? 2 : 1, byte);
    return quoted += '"';
}

} // namespace

CLiveTable::CLiveTable(std::string name, const CConstRefrence& container, const CSqlTableOptions& options,
                       std::size_t limit)
    : m_name(std::move(name)), m_rows(container)
{
    CColumns columns(m_rows.Infor(), options, limit);
    m_hasTooManyColumns = columns.IsTooMany();
    m_columns = columns.Take();
    m_types = columns.TakeTypes();
}

std::size_t CLiveTable::Find(std::string_view column) const
{
    const std::string wanted = Lower(column);
    std::size_t number = 0;
    while (number < m_columns.size() && Lower(m_columns[number].Name) != wanted)
        ++number;
    return number;
}

std::string CLiveTable::Declaration() const
{
    std::string text = "CREATE TABLE x";
    char separator = '(';
    for (const CColumn& column : m_columns) {
        text += separator + Quoted(column.Name) + NameOf(column.Type);
        separator = ',';
    }
    return text += ')';
}

bool CLiveTable::AddIndex(std::size_t column)
{
    if (m_columns[column].Type == Affinity::NONE) return false;
    m_indexes[column].Cost.Column = m_columns[column].Name;
    return true;
}

std::vector<CSqlIndex> CLiveTable::Indexes() const
{
    std::vector<CSqlIndex> costs;
    for (const auto& [column, index] : m_indexes)
        costs.push_back(index.Cost);
    return costs;
}

double CLiveTable::RowsOfOneValue(std::size_t column) const
{
    constexpr double GUESS = 10;
    const auto& index = m_indexes.at(column).Built;
    return index != nullptr ? index->RowsOfOneCode() : GUESS;
}

std::shared_ptr<const CIndex> CLiveTable::IndexOf(std::size_t column, const CState& state)
{
    CKeptIndex& index = m_indexes.at(column);
    if (index.Built != nullptr && index.State == state) return index.Built;
    using Clock = std::chrono::steady_clock;
    const Clock::time_point start = Clock::now();
    index.Built = nullptr; // what is out of date needs no room beside the new one
    index.Built = Build(m_columns[column], state);
    index.State = state;
    ++index.Cost.Builds;
    index.Cost.Bytes = index.Built->Bytes();
    index.Cost.Seconds = std::chrono::duration<double>(Clock::now() - start).count();
    return index.Built;
}

std::shared_ptr<const CIndex> CLiveTable::Build(const CColumn& column, const CState& state)
{
    auto index = std::make_shared<CIndex>();
    CCell cell;
    const auto add = [&](const char* element) {
        column.Read(element, cell);
        index->Add(column, cell);
    };
    if (m_rows.IsContiguous()) {
        for (unsigned long at = 0; at < state.Look.Count; at += m_rows.Stride())
            add(state.Look.First + at);
    } else {
        for (const char* const element : *PlacesOf(state))
            add(element);
    }
    index->Finish();
    return index;
}

std::shared_ptr<const std::vector<const char*>> CLiveTable::PlacesOf(const CState& state)
{
    if (m_rows.IsContiguous()) return nullptr;
    if (m_places == nullptr || !(m_placesState == state)) {
        m_places = std::make_shared<const std::vector<const char*>>(m_rows.Places(state.Look));
        m_placesState = state;
    }
    return m_places;
}

} // namespace vexa::sqlite
