#ifndef VEXA_TESTS_SUPPORT_JSON_TEXTS_H
#define VEXA_TESTS_SUPPORT_JSON_TEXTS_H

#include <cstddef>
#include <memory>
#include <ostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <vexa/event.h>

/// JSON texts with what RFC 8259 says of them, and their events as text.

namespace vexa_test {

/// A text that the grammar refuses.
struct RefusedText {
    std::string Text;
    vexa::ProblemCode Code;
    std::size_t Offset;
    std::size_t Length;
    std::string Expected;
    std::string Found;
};

std::vector<std::string> AcceptedTexts();
std::vector<RefusedText> RefusedTexts();

/// All events up to the end or the problem, a line each.
inline void AppendEvent(std::ostream& out, const vexa::CEvent& event)
{
    using vexa::EventKind;
    out << event.Offset << '+' << event.Length << ' ';
    switch (event.Kind) {
    case EventKind::END: out << "end"; break;
    case EventKind::NULL_VALUE: out << "null"; break;
    case EventKind::BOOL: out << (event.Bool ? "true" : "false"); break;
    case EventKind::SIGNED: out << "signed " << event.Signed << " of " << event.Text; break;
    case EventKind::UNSIGNED: out << "unsigned " << event.Unsigned << " of " << event.Text; break;
    case EventKind::FLOATING: out << "floating " << event.Floating << " of " << event.Text; break;
    case EventKind::STRING: out << "string " << event.Text.size() << ' ' << event.Text; break;
    case EventKind::KEY: out << "key " << event.Text.size() << ' ' << event.Text; break;
    case EventKind::BEGIN_OBJECT: out << '{'; break;
    case EventKind::END_OBJECT: out << '}'; break;
    case EventKind::BEGIN_ARRAY: out << '['; break;
    case EventKind::END_ARRAY: out << ']'; break;
    default: out << "another kind"; break;
    }
    out << '\n';
}

inline void AppendPlace(std::ostream& out, vexa::CEventSource& source, vexa::CTextPlace place)
{
    source.Locate(place);
    out << ' ' << place.Offset << '+' << place.Length << " at " << place.Line << ':' << place.Column;
}

inline std::string EventsOf(vexa::CEventSource& source)
{
    std::ostringstream out;
    vexa::CEvent event;
    vexa::CProblem problem;
    do {
        if (!source.Next(event, problem)) {
            out << "problem " << static_cast<int>(problem.Code) << " expected " << problem.Expected << " found "
                << problem.Found;
            AppendPlace(out, source, problem.Place);
            AppendPlace(out, source, problem.Second);
            return out.str();
        }
        AppendEvent(out, event);
        AppendPlace(out, source, {event.Offset, event.Length});
    } while (event.Kind != vexa::EventKind::END);
    return out.str();
}

/// Of a text in memory of just its size, so that a byte too far is noticed.
inline std::string EventsOf(std::string_view text, const vexa::CReadPolicy& policy = {})
{
    const std::vector<char> exact(text.begin(), text.end());
    return EventsOf(*vexa::JsonEvents(std::string_view(exact.data(), exact.size()), policy));
}

/// The text in the given pieces, each of which is gone when the next is asked for.
inline vexa::InputFunction InPieces(std::vector<std::string> pieces)
{
    struct State {
        std::vector<std::string> Pieces;
        std::size_t Next = 0;
        std::unique_ptr<char[]> Memory;
    };
    auto state = std::make_shared<State>();
    state->Pieces = std::move(pieces);
    return [state]() -> std::string_view {
        if (state->Next == state->Pieces.size()) return {};
        const std::string& piece = state->Pieces[state->Next++];
        state->Memory = std::make_unique<char[]>(piece.size());
        piece.copy(state->Memory.get(), piece.size());
        return {state->Memory.get(), piece.size()};
    };
}

inline std::vector<std::string> ByteByByte(std::string_view text)
{
    std::vector<std::string> pieces;
    for (const char byte : text)
        pieces.emplace_back(1, byte);
    return pieces;
}

/// The first difference between the events of a text and of its pieces, cut in two everywhere and byte by byte; empty
/// if there is none.
inline std::string PiecesDifference(const std::string& text, const vexa::CReadPolicy& policy = {})
{
    const std::string expected = EventsOf(text, policy);
    const auto differs = [&](std::vector<std::string> pieces) {
        return EventsOf(*vexa::JsonEvents(InPieces(std::move(pieces)), policy)) != expected;
    };
    if (differs(ByteByByte(text))) return "byte by byte: " + text;
    for (std::size_t cut = 1; cut < text.size(); ++cut) {
        if (differs({text.substr(0, cut), text.substr(cut)})) return "cut at " + std::to_string(cut) + ": " + text;
    }
    return {};
}

} // namespace vexa_test

#endif
