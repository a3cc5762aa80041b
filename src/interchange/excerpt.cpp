#include "interchange/excerpt.h"

#include <algorithm>
#include <cstddef>

#include "interchange/place.h"
#include "interchange/visible.h"

namespace vexa::interchange {

namespace {

/// The columns that a line's number takes at least.
constexpr std::size_t NUMBER_COLUMNS = 6;
/// What is shown of a line, and how much of that before the place where the line is longer.
constexpr std::size_t SHOWN_BYTES = 100;
constexpr std::size_t SHOWN_BEFORE = 40;
constexpr std::string_view CUT = "...";

/// A piece of one line: bytes of the text. Begin <= Token <= TokenEnd <= End.
struct CPiece {
    std::size_t Begin = 0;
    std::size_t Token = 0;
    std::size_t TokenEnd = 0;
    std::size_t End = 0;
    bool IsCutBefore = false;
    bool IsCutAfter = false;

    std::string_view Before(std::string_view text) const { return text.substr(Begin, Token - Begin); }
    std::string_view Meant(std::string_view text) const { return text.substr(Token, TokenEnd - Token); }
    std::string_view After(std::string_view text) const { return text.substr(TokenEnd, End - TokenEnd); }
};

/// Where the line that holds a byte begins, or \p least if that is nearer.
std::size_t LineStart(std::string_view text, std::size_t at, std::size_t least)
{
    while (at > least && text[at - 1] != '\n')
        --at;
    return at;
}

/// Likewise where it ends: before its newline, and before a carriage return in front of that.
std::size_t LineEnd(std::string_view text, std::size_t at, std::size_t most)
{
    const std::size_t newline = text.substr(0, most).find('\n', at);
    if (newline == std::string_view::npos) return most;
    return newline > at && text[newline - 1] == '\r' ? newline - 1 : newline;
}

/// The piece of a place's line that is shown where at most \p shown bytes may be; the place must be in the text. Looks
/// at no more of the text than that, so that many places of one long line do not cost its length each.
CPiece PieceOf(std::string_view text, std::size_t offset, std::size_t length, std::size_t shown, std::size_t before)
{
    CPiece piece;
    const std::size_t earliest = offset > shown ? offset - shown : 0;
    piece.Begin = LineStart(text, offset, earliest);
    piece.End = LineEnd(text, offset, std::min(text.size(), offset + shown));
    if (piece.End - piece.Begin > shown && offset - piece.Begin > before)
        piece.Begin = std::min(offset - before, piece.End - shown);
    piece.IsCutBefore = piece.Begin != 0 && text[piece.Begin - 1] != '\n';
    if (piece.IsCutBefore) piece.Begin = std::min(CharacterFrom(text, piece.Begin), offset);
    if (piece.End - piece.Begin > shown) piece.End = std::max(piece.Begin + shown, offset);
    while (piece.End < text.size() && piece.End > offset && CharacterFrom(text, piece.End) != piece.End)
        --piece.End;
    const std::string_view rest = text.substr(piece.End, 2);
    piece.IsCutAfter = !rest.empty() && rest[0] != '\n' && rest != "\r\n";
    piece.Token = offset;
    piece.TokenEnd = std::min(piece.End, offset + std::min(length, shown));
    return piece;
}

/// What is shown of a line, and where the token lies in it.
struct CShownLine {
    std::string Text;
    std::size_t TokenColumn = 0;
    std::size_t TokenColumns = 0;
};

void AppendToken(CShownLine& line, std::string_view token, std::size_t column)
{
    line.TokenColumn = column;
    line.TokenColumns = AppendVisible(line.Text, token, column, TabForm::BLANKS) - column;
}

CShownLine WholeLine(std::string_view text, const CPiece& piece)
{
    CShownLine line;
    if (piece.IsCutBefore) line.Text = CUT;
    AppendToken(line, piece.Meant(text),
                AppendVisible(line.Text, piece.Before(text), line.Text.size(), TabForm::BLANKS));
    AppendVisible(line.Text, piece.After(text), line.TokenColumn + line.TokenColumns, TabForm::BLANKS);
    if (piece.IsCutAfter) line.Text += CUT;
    return line;
}

/// The token where it stands in the line, counted in bytes: what is before it is not even looked at.
CShownLine TokenAlone(std::string_view text, const CPiece& piece, const CTextPlace& place)
{
    CShownLine line;
    line.Text = place.Column <= SHOWN_BYTES ? std::string(place.Column - 1, ' ') : std::string(CUT);
    AppendToken(line, piece.Meant(text), line.Text.size());
    if (place.Length > piece.TokenEnd - piece.Token) line.Text += CUT;
    return line;
}

/// The line's number, or blanks of its width.
void AppendGutter(std::string& out, const std::string& number, std::size_t width)
{
    out.append(width - number.size(), ' ').append(number).append(" |");
}

} // namespace

void AppendExcerpt(std::string& out, std::string_view text, const CTextPlace& place, ExcerptForm form)
{
    if (form == ExcerptForm::NOTHING || place.Line == 0 || place.Column == 0 || place.Offset > text.size()) return;
    if (form == ExcerptForm::TOKEN && place.Length == 0) return;
    const CPiece piece = PieceOf(text, place.Offset, place.Length, SHOWN_BYTES, SHOWN_BEFORE);
    const CShownLine line = form == ExcerptForm::LINE ? WholeLine(text, piece) : TokenAlone(text, piece, place);
    const std::string number = std::to_string(place.Line);
    const std::size_t width = std::max(NUMBER_COLUMNS, number.size());
    AppendGutter(out, number, width);
    if (!line.Text.empty()) out.append(" ").append(line.Text);
    out += '\n';
    AppendGutter(out, "", width);
    out.append(line.TokenColumn + 1, ' ').append("^");
    if (line.TokenColumns > 1) out.append(line.TokenColumns - 1, '~');
    out += '\n';
}

std::string ExcerptOf(std::string_view text, const CTextPlace& place, ExcerptForm form, std::size_t start)
{
    std::string excerpt;
    if (form == ExcerptForm::NOTHING || place.Offset < start || place.Offset - start > text.size()) return excerpt;
    const CPiece piece = PieceOf(text, place.Offset - start, place.Length, EXCERPT_BYTES, EXCERPT_BYTES / 2);
    const bool isLine = form == ExcerptForm::LINE;
    AppendVisible(excerpt, isLine ? text.substr(piece.Begin, piece.End - piece.Begin) : piece.Meant(text));
    return excerpt;
}

} // namespace vexa::interchange
