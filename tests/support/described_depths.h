#ifndef VEXA_TESTS_SUPPORT_DESCRIBED_DEPTHS_H
#define VEXA_TESTS_SUPPORT_DESCRIBED_DEPTHS_H

#include <list>

#include "support/described_shapes.h"

/// Described classes of which a simpler one says too little: types inside types, unions that own what they hold, in a
/// base of a base, and attributes with keys and rules of their own.

namespace vexa_test::everything {

/// Types that are held in one another.
struct Mixes {
    std::optional<std::variant<bool, std::string, std::vector<Inner>>> optionalVariant;
    std::variant<std::map<std::string, int>, std::tuple<int, bool>, std::unique_ptr<std::string>> variant;
    std::map<std::string, std::variant<std::string, std::optional<double>>> variants;
    std::shared_ptr<std::variant<int, std::string>> sharedVariant;
    std::unique_ptr<std::pair<int, std::optional<int>>> uniquePair;
    std::array<std::optional<Inner>, 2> optionals;
    std::tuple<std::optional<int>, std::vector<std::unique_ptr<Inner>>, std::pair<std::string, bool>> tuple;
    vexa::MayNull<std::vector<bool>> maybeBits;
    vexa::NonNullPointer<std::map<int, std::optional<std::string>>> always;
    std::list<std::deque<std::set<int>>> nested;
    std::vector<tm> times;
    std::vector<vexa::CDateTime> dates;
    std::vector<vexa::CBinary> binaries;
    std::vector<std::vector<bool>> bits;
    std::vector<Signal> signals;
    std::optional<Money> money;
    std::map<std::tuple<int, std::string>, int> byTuple;
    std::map<std::chrono::seconds, int> bySeconds;
    std::set<std::filesystem::path> paths;
    std::map<std::vector<int>, Inner> byNumbers;
    std::unordered_map<std::string, std::shared_ptr<std::vector<std::optional<Inner>>>> deep;
    std::vector<std::tuple<Signal, std::chrono::milliseconds>> moments;
    VEXA_TEST_MEMBERS(optionalVariant, variant, variants, sharedVariant, uniquePair, optionals, tuple, maybeBits,
                      always, nested, times, dates, binaries, bits, signals, money, byTuple, bySeconds, paths,
                      byNumbers, deep, moments)
};
VEXA_DESCRIBE(Mixes, optionalVariant, variant, variants, sharedVariant, uniquePair, optionals, tuple, maybeBits, always,
              nested, times, dates, binaries, bits, signals, money, byTuple, bySeconds, paths, byNumbers, deep, moments)

/// A union whose members own something, or are objects.
struct Cell {
    short kind = 0;
    union {
        long number;
        std::string text;
        Point point;
        std::unique_ptr<Inner> elsewhere;
        vexa::MayNull<std::string> maybe;
        std::vector<Inner> inners;
        Inner* owned;
    };
    Cell() : number(0) {}
    Cell(const Cell&) = delete;
    Cell& operator=(const Cell&) = delete;
    ~Cell() { Destroy(); }
    void Become(short now)
    {
        Destroy();
        kind = now;
        switch (kind) {
        case 1: new (&text) std::string(); break;
        case 2: new (&point) Point(); break;
        case 3: new (&elsewhere) std::unique_ptr<Inner>(); break;
        case 4: new (&maybe) vexa::MayNull<std::string>(); break;
        case 5: new (&inners) std::vector<Inner>(); break;
        case 6: owned = nullptr; break;
        default: number = 0;
        }
    }

private:
    void Destroy()
    {
        switch (kind) {
        case 1: text.~basic_string(); break;
        case 3: elsewhere.~unique_ptr(); break;
        case 4: maybe.~MayNull(); break;
        case 5: inners.~vector(); break;
        case 6: delete owned; break;
        default: break;
        }
    }
};
VEXA_DESCRIBE_CLASS(Cell)
{
    about.Attrib("kind", &Cell::kind);
    about.Attrib("number", &Cell::number).ActiveWhen("kind", 0);
    about.Attrib("text", &Cell::text).ActiveWhen("kind", 1);
    about.Attrib("point", &Cell::point).ActiveWhen("kind", 2);
    about.Attrib("elsewhere", &Cell::elsewhere).ActiveWhen("kind", 3);
    about.Attrib("maybe", &Cell::maybe).ActiveWhen("kind", 4);
    about.Attrib("inners", &Cell::inners).ActiveWhen("kind", 5);
    about.Attrib("owned", &Cell::owned).ActiveWhen("kind", 6);
}
/// Calls \p f with the name and the pointer of the member that is active.
template<class F>
bool VisitActive(const Cell& cell, F f)
{
    switch (cell.kind) {
    case 0: return f("number", &Cell::number);
    case 1: return f("text", &Cell::text);
    case 2: return f("point", &Cell::point);
    case 3: return f("elsewhere", &Cell::elsewhere);
    case 4: return f("maybe", &Cell::maybe);
    case 5: return f("inners", &Cell::inners);
    case 6: return f("owned", &Cell::owned);
    default: return true;
    }
}
inline void Fill(Filler& filler, Cell& cell)
{
    cell.Become(static_cast<short>(filler.Below(8)));
    VisitActive(cell, [&](const char*, auto member) { return Fill(filler, cell.*member), true; });
}
inline bool Same(Comparison& comparison, const Cell& left, const Cell& right)
{
    return comparison.Expect(left.kind == right.kind, "another kind") &&
           VisitActive(left, [&](const char* name, auto member) {
               return comparison.Inside(name, [&] { return Same(comparison, left.*member, right.*member); });
           });
}

struct Ordered {
    long order = 0;
};
VEXA_DESCRIBE(Ordered, order)
struct Labelled : Cell {
    std::string label;
};
VEXA_DESCRIBE_CLASS(Labelled)
{
    about.Base<Cell>();
    about.Attrib("label", &Labelled::label);
}
struct Cells : Ordered, Labelled {
    Cell inside;
    std::unique_ptr<Cells> next;
    std::vector<std::unique_ptr<Cell>> others;
    std::map<std::string, std::shared_ptr<Labelled>> labelled;
};
VEXA_DESCRIBE_CLASS(Cells)
{
    about.Base<Ordered>();
    about.Base<Labelled>();
    about.Attrib("inside", &Cells::inside);
    about.Attrib("next", &Cells::next);
    about.Attrib("others", &Cells::others);
    about.Attrib("labelled", &Cells::labelled);
}
inline const std::vector<std::string> CELLS_MEMBERS = {"order", "label", "inside", "next", "others", "labelled"};
template<class T>
auto MembersOf(T& cells)
    -> decltype(std::tie(cells.order, cells.label, cells.inside, cells.next, cells.others, cells.labelled))
{
    return std::tie(cells.order, cells.label, cells.inside, cells.next, cells.others, cells.labelled);
}
inline void Fill(Filler& filler, Labelled& labelled)
{
    Fill(filler, static_cast<Cell&>(labelled));
    Fill(filler, labelled.label);
}
inline bool Same(Comparison& comparison, const Labelled& left, const Labelled& right)
{
    return Same(comparison, static_cast<const Cell&>(left), static_cast<const Cell&>(right)) &&
           Same(comparison, left.label, right.label);
}
inline void Fill(Filler& filler, Cells& cells)
{
    ++filler.Depth;
    Fill(filler, static_cast<Cell&>(cells));
    std::apply([&](auto&... members) { (Fill(filler, members), ...); }, MembersOf(cells));
    --filler.Depth;
}
inline bool Same(Comparison& comparison, const Cells& left, const Cells& right)
{
    return Same(comparison, static_cast<const Cell&>(left), static_cast<const Cell&>(right)) &&
           SameMembers(comparison, CELLS_MEMBERS, MembersOf(left), MembersOf(right));
}

/// Attributes that say more than their names. No rule refuses a value of its type, so that whatever has been read can
/// be written and read.
struct Bounds {
    int leastValue = 0;
    std::optional<double> mostValue;
    VEXA_TEST_MEMBERS(leastValue, mostValue)
};
struct Noted {
    int serverPort = 1;
    std::string hostName = "none";
    std::vector<int> retryDelays = {1, 2};
    Bounds bounds;
    Signal lastSignal = Signal::amber;
    std::unique_ptr<Noted> fallback;
    std::map<std::string, vexa::CRawJson> rest;
    VEXA_TEST_MEMBERS(serverPort, hostName, retryDelays, bounds, lastSignal, fallback, rest)
};
VEXA_DESCRIBE_CLASS(Bounds)
{
    about.KeyStyle(vexa::KeyStyle::SNAKE);
    about.Attrib("leastValue", &Bounds::leastValue);
    about.Attrib("mostValue", &Bounds::mostValue).OmitIfDefault();
}
VEXA_DESCRIBE_CLASS(Noted)
{
    about.KeyStyle(vexa::KeyStyle::KEBAB);
    about.Attrib("serverPort", &Noted::serverPort).Required().Range(-2147483647 - 1, 2147483647);
    about.Attrib("hostName", &Noted::hostName).Key("Host name").Alias("host").Masked();
    about.Attrib("retryDelays", &Noted::retryDelays).Length(0, 1000000).OmitIfDefault();
    about.Attrib("bounds", &Noted::bounds).Flatten();
    about.Attrib("lastSignal", &Noted::lastSignal).OmitIfDefault();
    about.Attrib("fallback", &Noted::fallback);
    about.Attrib("rest", &Noted::rest).KeepsUnknown();
    about.Check([](const Noted&) { return true; }, "never said");
}
/// Whether what is written does not name every attribute.
template<class T>
inline constexpr bool LEAVES_OUT = std::is_same_v<T, Noted>;
inline void Fill(Filler& filler, Noted& noted)
{
    ++filler.Depth;
    noted.serverPort = static_cast<int>(filler.Below(65536));
    Fill(filler, noted.hostName);
    Fill(filler, noted.retryDelays);
    if (filler.OneIn(3)) noted.retryDelays = {1, 2};
    Fill(filler, noted.bounds);
    Fill(filler, noted.lastSignal);
    Fill(filler, noted.fallback);
    Fill(filler, noted.rest);
    noted.rest.erase("host");
    --filler.Depth;
}

} // namespace vexa_test::everything

#endif
