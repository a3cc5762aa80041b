#ifndef VEXA_TESTS_FORMATS_SQLITE_RANDOM_H
#define VEXA_TESTS_FORMATS_SQLITE_RANDOM_H

#include <functional>
#include <limits>
#include <list>
#include <string>
#include <vector>

#include <vexa/types.h>
#include <vexa/vexa.h>

#include "formats/sqlite_database.h"

/// Random objects as live tables, the same values in plain tables, and random queries that both must answer alike.

namespace vexa_test {

/// A number below another, drawn by whoever drives.
using Draw = std::function<std::size_t(std::size_t)>;

enum class Mood { calm, wild = 40, _7 };
VEXA_DESCRIBE_ENUM(Mood, calm, wild, _7)

struct Place {
    std::string town;
    long long far = 0;
};
VEXA_DESCRIBE(Place, town, far)

struct Thing {
    int id = 0;
    bool flag = false;
    long long big = 0;
    unsigned long large = 0;
    double real = 0;
    std::string text;
    vexa::MayNull<std::string> nick;
    std::optional<int> maybe;
    vexa::CBinary bytes;
    Mood mood = Mood::calm;
    Place place;
};
VEXA_DESCRIBE(Thing, id, flag, big, large, real, text, nick, maybe, bytes, mood, place)

inline const std::vector<std::string>& RandomTexts()
{
    static const std::vector<std::string> texts{"",
                                                "0",
                                                "1",
                                                "-1",
                                                "5",
                                                " 5",
                                                "5 ",
                                                "5.0",
                                                "05",
                                                "+5",
                                                "5e0",
                                                "1e3",
                                                "1000",
                                                "abc",
                                                "ABC",
                                                "Abc",
                                                "ab",
                                                "a",
                                                "b",
                                                "\xc3\xab",
                                                "12x",
                                                ".5",
                                                "0.5",
                                                "nan",
                                                "inf",
                                                "0x10",
                                                "NULL",
                                                "true",
                                                "wild",
                                                "_",
                                                "a%",
                                                "9223372036854775807",
                                                "9223372036854775808",
                                                "18446744073709551615",
                                                "9007199254740993",
                                                "9007199254740992.0",
                                                std::string("a\0b", 3),
                                                "40"};
    return texts;
}
inline const std::vector<long long>& RandomIntegers()
{
    using Limits = std::numeric_limits<long long>;
    static const std::vector<long long> integers{0,
                                                 1,
                                                 -1,
                                                 5,
                                                 40,
                                                 1000,
                                                 9007199254740992,
                                                 9007199254740993,
                                                 9007199254740994,
                                                 Limits::max(),
                                                 Limits::max() - 1,
                                                 Limits::min()};
    return integers;
}
inline const std::vector<double>& RandomReals()
{
    static const std::vector<double> reals{0,
                                           0.5,
                                           1,
                                           -1,
                                           5,
                                           5.5,
                                           1e300,
                                           -1e300,
                                           9007199254740992.0,
                                           1000.0,
                                           std::numeric_limits<double>::infinity(),
                                           std::numeric_limits<double>::quiet_NaN()};
    return reals;
}
template<class T>
const T& OneOf(const Draw& draw, const std::vector<T>& all)
{
    return all[draw(all.size())];
}

inline Thing RandomThing(const Draw& draw)
{
    Thing thing;
    thing.id = static_cast<int>(draw(12));
    thing.flag = draw(2) != 0;
    thing.big = OneOf(draw, RandomIntegers());
    thing.large = draw(3) != 0 ? static_cast<unsigned long>(OneOf(draw, RandomIntegers()))
                               : std::numeric_limits<unsigned long>::max() - draw(2);
    thing.real = OneOf(draw, RandomReals());
    thing.text = OneOf(draw, RandomTexts());
    if (draw(3) != 0) thing.nick = OneOf(draw, RandomTexts());
    if (draw(3) != 0) thing.maybe = static_cast<int>(draw(7));
    thing.bytes = OneOf(draw, RandomTexts());
    thing.mood = static_cast<Mood>(draw(2) != 0 ? 40 : draw(6));
    thing.place.town = OneOf(draw, RandomTexts());
    thing.place.far = OneOf(draw, RandomIntegers());
    return thing;
}

/// What a live table of things has, by its own account.
class CPlainTable {
public:
    CPlainTable(sqlite3* db, const std::string& name)
        : m_db(db), m_insert(db, "CREATE TABLE " + name +
                                     "(id INTEGER, flag INTEGER, big INTEGER, large INTEGER, real REAL, text TEXT, "
                                     "nick TEXT, maybe INTEGER, bytes BLOB, mood TEXT, \"place.town\" TEXT, "
                                     "\"place.far\" INTEGER)"),
          m_name(name)
    {
        m_insert.Step();
    }
    void Insert(const Thing& thing, long long row)
    {
        CStatement insert(m_db, "INSERT INTO " + m_name +
                                    "(rowid, id, flag, big, large, real, text, nick, maybe, bytes, mood, "
                                    "\"place.town\", \"place.far\") VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?)");
        m_at = insert.Get();
        m_number = 0;
        Bind(row);
        Bind(thing.id);
        Bind(thing.flag ? 1 : 0);
        Bind(thing.big);
        if (thing.large <= 9223372036854775807UL)
            Bind(static_cast<long long>(thing.large));
        else
            sqlite3_bind_double(m_at, ++m_number, static_cast<double>(thing.large));
        sqlite3_bind_double(m_at, ++m_number, thing.real);
        Bind(thing.text);
        if (thing.nick.has_value())
            Bind(*thing.nick);
        else
            ++m_number;
        if (thing.maybe.has_value())
            Bind(*thing.maybe);
        else
            ++m_number;
        sqlite3_bind_blob64(m_at, ++m_number, thing.bytes.data(), thing.bytes.Size, SQLITE_TRANSIENT);
        const int mood = static_cast<int>(thing.mood);
        Bind(mood == 0 ? "calm" : mood == 40 ? "wild" : mood == 41 ? "_7" : std::to_string(mood));
        Bind(thing.place.town);
        Bind(thing.place.far);
        insert.Step();
    }

private:
    void Bind(long long value) { sqlite3_bind_int64(m_at, ++m_number, value); }
    void Bind(const std::string& text)
    {
        sqlite3_bind_text64(m_at, ++m_number, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    }

    sqlite3* m_db;
    CStatement m_insert;
    std::string m_name;
    sqlite3_stmt* m_at = nullptr;
    int m_number = 0;
};

/// Queries over two tables whose names are filled in: %1 and %2.
class CRandomQuery {
public:
    explicit CRandomQuery(const Draw& draw) : m_draw(draw) {}

    std::string Make()
    {
        switch (m_draw(6)) {
        case 0:
            return "SELECT a.rowid, b.rowid, " + Column("a") + ", " + Column("b") + " FROM %1 a" + Join() +
                   Where({"a", "b"}) + " ORDER BY a.rowid, b.rowid" + Limit();
        case 1:
            return "SELECT " + Key() + " AS k, count(*), count(" + Column("a") + "), sum(a.id), min(" + Column("a") +
                   "), max(a.real) FROM %1 a" + Where({"a"}) + " GROUP BY k" + Having() + " ORDER BY k" + Limit();
        case 2: return "SELECT DISTINCT " + Column("a") + " AS k FROM %1 a" + Where({"a"}) + " ORDER BY k" + Limit();
        case 3:
            return "SELECT a.rowid FROM %1 a WHERE " + Column("a") + " IN (SELECT " + Column("b") + " FROM %2 b" +
                   Where({"b"}) + ") ORDER BY a.rowid";
        case 4:
            return "SELECT a.rowid, (SELECT count(*) FROM %2 b WHERE " + Compare(Column("b"), Column("a")) +
                   ") FROM %1 a" + Where({"a"}) + " ORDER BY a.rowid";
        default:
            return "SELECT rowid, * FROM %1 a" + Where({"a"}) + " ORDER BY " + Column("a") + Collation() +
                   (m_draw(2) != 0 ? " DESC" : "") + ", rowid" + Limit();
        }
    }

private:
    using Aliases = std::vector<std::string>;

    std::string Column(const std::string& alias)
    {
        static const std::vector<std::string> columns{
            "id",   "flag",  "big",   "large", "real",           "text",
            "nick", "maybe", "bytes", "mood",  "\"place.town\"", "\"place.far\""};
        return alias + '.' + OneOf(m_draw, columns);
    }
    std::string Quoted(const std::string& text) { return "'" + text.substr(0, text.find('\0')) + "'"; }
    std::string Value()
    {
        char number[64];
        switch (m_draw(8)) {
        case 0: return "NULL";
        case 1:
        case 2: return std::to_string(m_draw(12));
        case 3: return std::to_string(OneOf(m_draw, RandomIntegers()));
        case 4:
            std::snprintf(number, sizeof number, "%.17g", OneOf(m_draw, RandomReals()));
            return number[std::string(number).find_first_not_of('-')] > '9' ? "1e999" : number;
        case 5: return "CAST(" + Quoted(OneOf(m_draw, RandomTexts())) + " AS BLOB)";
        default: return Quoted(OneOf(m_draw, RandomTexts()));
        }
    }
    std::string Operator()
    {
        static const std::vector<std::string> operators{"=", "=", "<", "<=", ">", ">=", "<>", "IS", "IS NOT"};
        return ' ' + OneOf(m_draw, operators) + ' ';
    }
    std::string Collation() { return m_draw(5) == 0 ? " COLLATE NOCASE" : ""; }
    std::string Compare(const std::string& left, const std::string& right)
    {
        return m_draw(2) != 0 ? left + Operator() + right + Collation() : right + Operator() + left;
    }
    std::string Cast(const std::string& value)
    {
        static const std::vector<std::string> types{"INTEGER", "REAL", "TEXT", "BLOB", "NUMERIC"};
        return "CAST(" + value + " AS " + OneOf(m_draw, types) + ')';
    }
    std::string Term(const Aliases& aliases)
    {
        const std::string column = Column(OneOf(m_draw, aliases));
        switch (m_draw(13)) {
        case 0: return column + " BETWEEN " + Value() + " AND " + Value();
        case 1: return column + Collation() + " IN (" + Value() + ", " + Value() + ", " + Value() + ')';
        case 2: return column + " IN (" + Value() + ')';
        case 3: return column + (m_draw(2) != 0 ? " IS NULL" : " IS NOT NULL");
        case 4: return column + (m_draw(2) != 0 ? " LIKE '" : " GLOB '") + (m_draw(2) != 0 ? "a%'" : "*5*'");
        case 5: return OneOf(m_draw, aliases) + ".rowid" + Operator() + Value();
        case 6: return Compare(column, Cast(Value()));
        case 7: return Compare(Cast(column), Value());
        case 8: return Compare(column, Column(OneOf(m_draw, aliases)));
        case 9: return OneOf(m_draw, aliases) + ".rowid IN (1, " + Value() + ", " + Value() + ')';
        default: return Compare(column, Value());
        }
    }
    std::string Terms(const Aliases& aliases, int depth)
    {
        switch (depth > 2 ? 9 : m_draw(8)) {
        case 0: return '(' + Terms(aliases, depth + 1) + " OR " + Terms(aliases, depth + 1) + ')';
        case 1:
        case 2: return '(' + Terms(aliases, depth + 1) + " AND " + Terms(aliases, depth + 1) + ')';
        case 3: return "NOT (" + Terms(aliases, depth + 1) + ')';
        default: return Term(aliases);
        }
    }
    std::string Where(const Aliases& aliases) { return m_draw(6) == 0 ? "" : " WHERE " + Terms(aliases, 0); }
    std::string Join()
    {
        static const std::vector<std::string> joins{" JOIN ", " LEFT JOIN ", " CROSS JOIN "};
        return OneOf(m_draw, joins) + "%2 b ON " +
               (m_draw(2) != 0 ? Compare(Column("a"), Column("b")) : Terms({"a", "b"}, 1));
    }
    std::string Key()
    {
        static const std::vector<std::string> keys{"a.id",   "a.flag", "a.maybe",      "a.mood",
                                                   "a.text", "a.big",  "lower(a.nick)"};
        return OneOf(m_draw, keys);
    }
    std::string Having() { return m_draw(4) == 0 ? " HAVING count(*) > 1" : ""; }
    std::string Limit()
    {
        if (m_draw(4) != 0) return "";
        return " LIMIT " + std::to_string(m_draw(9)) + " OFFSET " + std::to_string(m_draw(3));
    }

    const Draw& m_draw;
};

/// Two live tables, one of them indexed at random, and two plain ones with the same rows.
class CComparison {
public:
    explicit CComparison(Draw draw) : m_draw(std::move(draw)), m_view(m_db)
    {
        CPlainTable plain1(m_db, "plain1");
        CPlainTable plain2(m_db, "plain2");
        for (std::size_t row = 0, count = m_draw(25); row < count; ++row)
            plain1.Insert(m_vector.emplace_back(RandomThing(m_draw)), static_cast<long long>(row));
        for (std::size_t row = 0, count = m_draw(12); row < count; ++row)
            plain2.Insert(m_list.emplace_back(RandomThing(m_draw)), static_cast<long long>(row));
        m_view.Add("live1", m_vector);
        m_view.Add("live2", m_list);
        for (const char* const column : {"id", "flag", "big", "large", "real", "text", "nick", "maybe", "bytes", "mood",
                                         "place.town", "place.far"}) {
            if (m_draw(3) != 0) m_view.Index("live1", column);
            if (m_draw(3) == 0) m_view.Index("live2", column);
        }
    }
    /// \return the query and what it gives of each, where they differ or one is no answer; else empty.
    std::string Differ()
    {
        const std::string query = CRandomQuery(m_draw).Make();
        const Rows live = m_db.Query(Filled(query, "live"));
        const Rows plain = m_db.Query(Filled(query, "plain"));
        const bool isAnswered = plain.empty() || plain.back().compare(0, 6, "error ") != 0;
        if (live == plain && isAnswered) return {};
        std::string text = Filled(query, "live") + "\n" + m_db.Plan(Filled(query, "live")) + "\nlive:";
        for (const std::string& row : live)
            text += "\n  " + row;
        text += "\nplain:";
        for (const std::string& row : plain)
            text += "\n  " + row;
        return text;
    }

private:
    static std::string Filled(std::string query, const std::string& name)
    {
        for (std::size_t at = query.find("%"); at != query.npos; at = query.find("%", at + 1)) {
            if (at + 1 < query.size() && (query[at + 1] == '1' || query[at + 1] == '2')) query.replace(at, 1, name);
        }
        return query;
    }

    Draw m_draw;
    std::vector<Thing> m_vector;
    std::list<Thing> m_list;
    CDatabase m_db;
    vexa::CSqlView m_view;
};

} // namespace vexa_test

#endif
