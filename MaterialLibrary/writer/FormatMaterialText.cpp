#include "writer/FormatMaterialText.h"

#include "model/CFakeMaterialLib.h"
#include "reader/CMaterialReader.h"
#include "reader/IReadObserver.h"
#include "reader/Keywords.h"
#include "reader/LoadMaterialFile.h"

#include <algorithm>
#include <vector>

namespace
{
enum class Role
{
    header,
    blockOpen,
    blockWord,
    recordOpen,
    key,
    row, // its frequency
    value,
    other // tells by itself what it is
};

struct Piece
{
    std::string_view text;
    Role role;
};

// Collects the pieces of a text and what they are.
class CPieceObserver final : public IReadObserver
{
public:
    void OnPiece(std::string_view piece) override
    {
        pieces.push_back({piece, isInHeader ? Role::header : Role::other});
    }
    void OnBlock(std::string_view word) override
    {
        const auto keys = ListKeys(word == keyword::metal ? MLMATERIAL_METAL : MLMATERIAL_DIELECTRIC);
        keyWidth = std::ranges::max_element(keys, {}, &std::string_view::size)->size();
        OnUnknownBlock(word);
    }
    void OnUnknownBlock(std::string_view /*word*/) override
    {
        isInHeader = false;
        MarkLastTwo(Role::blockOpen, Role::blockWord);
    }
    void OnRecord(std::string_view /*key*/) override { MarkLastTwo(Role::recordOpen, Role::key); }
    void OnText(std::string_view /*text*/) override { pieces.back().role = Role::value; }
    void OnTechnology(std::string_view /*word*/) override { pieces.back().role = Role::value; }
    void OnRow(std::string_view /*frequency*/) override { pieces.back().role = Role::row; }

    std::vector<Piece> pieces;
    std::size_t keyWidth = 0; // of the materials' kind

private:
    void MarkLastTwo(Role sign, Role word)
    {
        pieces[pieces.size() - 2].role = sign;
        pieces.back().role = word;
    }

    bool isInHeader = true;
};

// What stands before a piece.
enum class Lead
{
    nothing,
    blank,
    line,         // a line break
    indentedLine, // the same, and four blanks
    emptyLine     // the same as line, and an empty line
};

constexpr std::string_view indentation = "    ";
constexpr std::string_view blanks = " \t";
constexpr std::string_view lineBreaks = "\r\n";

// Lays the pieces of a text out.
class CLayout
{
public:
    CLayout(std::string_view wholeText, const CPieceObserver& read)
        : text(wholeText), pieces(read.pieces), keyWidth(read.keyWidth), lineEnd(FindLineEnd())
    {
        formatted.reserve(text.size());
    }

    [[nodiscard]] std::string Finish()
    {
        for (; next < pieces.size(); ++next)
        {
            AddPiece(ChooseLead());
        }
        static_cast<void>(AddComments(Lead::line));
        StartLine(false);
        return std::move(formatted);
    }

private:
    struct Comments
    {
        bool any = false;
        bool onOwnLine = false;
        bool beforeEmptyLine = false; // at least one behind the last of them, or without any
    };

    [[nodiscard]] std::string_view GetGapBefore(std::size_t index) const;
    [[nodiscard]] std::string_view FindLineEnd() const;
    [[nodiscard]] Lead ChooseLead() const;
    [[nodiscard]] Comments AddComments(Lead lead);
    void AddPiece(Lead lead);
    void SetColumn(const Piece& piece);
    [[nodiscard]] std::size_t FindRowWidth() const;

    void StartLine(bool withEmptyLine)
    {
        if (!formatted.empty())
        {
            formatted.append(lineEnd).append(withEmptyLine ? lineEnd : "");
        }
    }

    std::string_view text;
    const std::vector<Piece>& pieces;
    std::size_t keyWidth;
    std::string_view lineEnd;
    std::string formatted;
    std::size_t next = 0;     // the piece to come
    std::size_t rowWidth = 0; // of the frequencies of the table; 0 before its first row
    std::size_t padding = 0;  // what the last piece lacks to the width of its column
};

// What stands between the piece and the one before.
std::string_view CLayout::GetGapBefore(std::size_t index) const
{
    const auto at = [this](const char* p) { return static_cast<std::size_t>(p - text.data()); };
    const std::size_t begin =
        index == 0 ? 0 : at(pieces[index - 1].text.data() + pieces[index - 1].text.size());
    return text.substr(begin, index == pieces.size() ? std::string_view::npos
                                                     : at(pieces[index].text.data()) - begin);
}

// The first one.
std::string_view CLayout::FindLineEnd() const
{
    for (std::size_t i = 0; i <= pieces.size(); ++i)
    {
        const std::string_view gap = GetGapBefore(i);
        const std::size_t at = gap.find_first_of(lineBreaks);
        if (at != std::string_view::npos)
        {
            return gap.substr(at).starts_with("\r\n") ? "\r\n" : "\n";
        }
    }
    return "\n";
}

Lead CLayout::ChooseLead() const
{
    const Piece& piece = pieces[next];
    switch (piece.role)
    {
    case Role::header:
        return piece.text == "{" ? Lead::line : Lead::nothing;
    case Role::blockOpen:
        return Lead::emptyLine;
    case Role::recordOpen:
        return Lead::line;
    case Role::blockWord:
    case Role::key:
        return Lead::nothing;
    case Role::row:
        return Lead::indentedLine;
    case Role::value:
        return Lead::blank;
    default:
        break;
    }
    switch (piece.text.front())
    {
    case '}':
        return Lead::line;
    case ')':
        return rowWidth > 0 ? Lead::line : Lead::nothing;
    case '=':
        return Lead::blank;
    default: // a number or, in a table, a word
        const Piece& last = pieces[next - 1];
        return rowWidth == 0 || last.role == Role::row || last.text == "=" ? Lead::blank : Lead::indentedLine;
    }
}

// Adds the comments between the last piece and the next one, which has that lead.
CLayout::Comments CLayout::AddComments(Lead lead)
{
    const std::string_view gap = GetGapBefore(next);
    const bool isInTable = rowWidth > 0 && next < pieces.size() && pieces[next].text == ")";
    const bool isIndented = isInTable || (lead != Lead::line && lead != Lead::emptyLine);
    Comments comments;
    unsigned lineCount = 0; // line breaks since the last piece or comment
    for (std::size_t at = gap.find_first_not_of(blanks); at != std::string_view::npos;
         at = gap.find_first_not_of(blanks, at))
    {
        if (lineBreaks.find(gap[at]) != std::string_view::npos)
        {
            at += gap.substr(at).starts_with("\r\n") ? 2 : 1;
            ++lineCount;
            continue;
        }
        std::string_view comment = gap.substr(at, gap.find_first_of(lineBreaks, at) - at);
        at += comment.size();
        comment = comment.substr(0, comment.find_last_not_of(blanks) + 1);
        if (lineCount == 0 && next > 0)
        {
            formatted.append("  ");
        }
        else
        {
            StartLine(lineCount > 1 || (lead == Lead::emptyLine && !comments.onOwnLine));
            formatted.append(isIndented ? indentation : "");
            comments.onOwnLine = true;
        }
        formatted.append(comment);
        comments.any = true;
        lineCount = 0;
    }
    comments.beforeEmptyLine = lineCount > 1;
    return comments;
}

void CLayout::AddPiece(Lead lead)
{
    const Comments comments = AddComments(lead);
    const bool isOnLine = lead == Lead::nothing || lead == Lead::blank;
    if (!isOnLine || comments.any)
    {
        StartLine(comments.beforeEmptyLine || (lead == Lead::emptyLine && !comments.onOwnLine));
        formatted.append(isOnLine || lead == Lead::indentedLine ? indentation : "");
    }
    else if (lead == Lead::blank)
    {
        formatted.append(padding + 1, ' ');
    }
    formatted.append(pieces[next].text);
    SetColumn(pieces[next]);
}

// Keys and frequencies stand in columns.
void CLayout::SetColumn(const Piece& piece)
{
    std::size_t width = 0;
    if (piece.role == Role::recordOpen)
    {
        rowWidth = 0;
    }
    else if (piece.role == Role::key)
    {
        width = keyWidth;
    }
    else if (piece.role == Role::row)
    {
        rowWidth = rowWidth > 0 ? rowWidth : FindRowWidth();
        width = rowWidth;
    }
    padding = width > piece.text.size() ? width - piece.text.size() : 0;
}

// That of the widest frequency of the table which begins with the next piece.
std::size_t CLayout::FindRowWidth() const
{
    constexpr std::size_t limit = 16;
    std::size_t width = 0;
    for (std::size_t i = next; i < pieces.size() && pieces[i].role != Role::recordOpen; ++i)
    {
        width = pieces[i].role == Role::row ? std::max(width, pieces[i].text.size()) : width;
    }
    return std::min(width, limit);
}
} // namespace

std::string FormatMaterialText(std::string_view text)
{
    const std::string padded = PadText(std::string(text));
    CTokenScanner scanner;
    scanner.Attach(padded.c_str());
    CPieceObserver observer;
    CMaterialReader reader(scanner, &observer);
    CFakeMaterialLib library;
    reader.ReadLibrary(library);
    const std::size_t length = std::min(text.find('\0'), text.size());
    return CLayout({padded.data(), length}, observer).Finish().append(text.substr(length));
}
