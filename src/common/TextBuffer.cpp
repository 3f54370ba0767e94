#include "common/TextBuffer.h"

#include "common/Graphemes.h"
#include "common/UnicodeText.h"
#include "common/UnitBlock.h"

#include <algorithm>
#include <cassert>

namespace tarnquill {

struct TextBuffer::Content {
    std::vector<Piece> pieces;
    std::size_t length = 0;
    std::size_t lineFeeds = 0;
    std::size_t utf8Length = 0;

    void append(std::shared_ptr<const Chunk> chunk) {
        const auto& added = *chunk;
        pieces.push_back({.chunk = std::move(chunk), .start = length, .firstLine = lineFeeds});
        length += added.text.size();
        lineFeeds += added.lineFeeds.size();
        utf8Length += added.utf8Length;
    }
};

namespace {

constexpr auto kCapacity = TextBuffer::Chunk::kCapacity;
constexpr auto kNone = std::u16string_view::npos;

// A smaller chunk is joined with a neighbour when it is edited.
constexpr auto kSmallest = kCapacity / 4;

// How far difference() compares texts that share nothing.
constexpr auto kComparedUnits = 4 * kCapacity;

// The position of the first line feed from `start` on; the text's size when there is none.
std::size_t nextLineFeed(std::u16string_view text, std::size_t start) {
    return findUnit(text, start, [](auto unit) { return unit == u'\n'; });
}

// The end of the line that goes on at `start`, behind its line feed.
std::size_t lineEnd(std::u16string_view text, std::size_t start) {
    return std::min(nextLineFeed(text, start) + 1, text.size());
}

std::shared_ptr<const TextBuffer::Chunk> makeChunk(std::u16string_view text) {
    auto chunk = std::make_shared<TextBuffer::Chunk>();
    chunk->text = text;
    chunk->utf8Length = utf8Length(text);
    for (auto at = nextLineFeed(text, 0); at < text.size(); at = nextLineFeed(text, at + 1)) {
        chunk->lineFeeds.push_back(static_cast<std::uint16_t>(at));
    }
    chunk->lineFeeds.shrink_to_fit();
    return chunk;
}

// Cuts texts into chunks.
class Splitter {
public:
    explicit Splitter(std::vector<std::shared_ptr<const TextBuffer::Chunk>>& chunks) : m_chunks(chunks) {}

    // `insideLine`: the text begins inside a line. `lineGoesOn`: its last line continues after it.
    void split(std::u16string_view text, bool insideLine, bool lineGoesOn) {
        if (insideLine) {
            const auto end = lineEnd(text, 0);
            addLine(text.substr(0, end));
            text.remove_prefix(end);
        }
        std::u16string_view unfinished;
        if (lineGoesOn) {
            const auto end = text.rfind(u'\n') + 1; // 0 when there is none
            unfinished = text.substr(end);
            text = text.substr(0, end);
        }
        while (!text.empty()) {
            text.remove_prefix(addLines(text));
        }
        addLine(unfinished);
    }

private:
    void add(std::u16string_view text) { m_chunks.push_back(makeChunk(text)); }

    // Adds a chunk of whole lines, or all chunks of one long line. Returns how much that was.
    std::size_t addLines(std::u16string_view text) {
        if (text.size() <= kCapacity) {
            add(text);
            return text.size();
        }
        // Chunks of equal size leave each of them some room to grow.
        const auto count = (text.size() + kCapacity - 1) / kCapacity;
        const auto wanted = text.size() / count;
        const auto lineFeed = text.rfind(u'\n', wanted - 1);
        const auto end = lineFeed == kNone ? lineEnd(text, wanted) : lineFeed + 1;
        if (end <= kCapacity) {
            add(text.substr(0, end));
        } else {
            addLine(text.substr(0, end));
        }
        return end;
    }

    void addLine(std::u16string_view line) {
        for (auto left = (line.size() + kCapacity - 1) / kCapacity; left > 1; --left) {
            const auto end = Graphemes::start(line, line.size() / left);
            add(line.substr(0, end));
            line.remove_prefix(end);
        }
        if (!line.empty()) {
            add(line);
        }
    }

    std::vector<std::shared_ptr<const TextBuffer::Chunk>>& m_chunks;
};

// How many units two texts have in common from the two positions on (step 1) or before them (step -1).
class Comparison {
public:
    Comparison(const TextBuffer& left, const TextBuffer& right) : m_left(left), m_right(right) {}

    [[nodiscard]] std::size_t forward(std::size_t left, std::size_t right, std::size_t limit) const {
        std::size_t common = 0;
        while (common < limit) {
            const auto a = after(m_left, left + common);
            const auto b = after(m_right, right + common);
            const auto length = std::min({a.size(), b.size(), limit - common});
            const auto end = a.begin() + static_cast<std::ptrdiff_t>(length);
            const auto equal =
                static_cast<std::size_t>(std::mismatch(a.begin(), end, b.begin()).first - a.begin());
            common += equal;
            if (equal < length) {
                break;
            }
        }
        return common;
    }

    [[nodiscard]] std::size_t backward(std::size_t left, std::size_t right, std::size_t limit) const {
        std::size_t common = 0;
        while (common < limit) {
            const auto a = before(m_left, left - common);
            const auto b = before(m_right, right - common);
            const auto length = std::min({a.size(), b.size(), limit - common});
            const auto end = a.rbegin() + static_cast<std::ptrdiff_t>(length);
            const auto equal =
                static_cast<std::size_t>(std::mismatch(a.rbegin(), end, b.rbegin()).first - a.rbegin());
            common += equal;
            if (equal < length) {
                break;
            }
        }
        return common;
    }

private:
    static std::u16string_view after(const TextBuffer& buffer, std::size_t position) {
        const auto& piece = buffer.pieces()[buffer.pieceAt(position)];
        return std::u16string_view(piece.chunk->text).substr(position - piece.start);
    }

    static std::u16string_view before(const TextBuffer& buffer, std::size_t position) {
        const auto& piece = buffer.pieces()[buffer.pieceAt(position - 1)];
        return std::u16string_view(piece.chunk->text).substr(0, position - piece.start);
    }

    const TextBuffer& m_left;
    const TextBuffer& m_right;
};

} // namespace

TextBuffer::TextBuffer() {
    static const auto kEmpty = [] {
        auto content = std::make_shared<Content>();
        content->append(std::make_shared<Chunk>());
        return std::shared_ptr<const Content>(std::move(content));
    }();
    m_content = kEmpty;
}

TextBuffer::TextBuffer(std::u16string_view text) : TextBuffer() {
    if (text.empty()) {
        return;
    }
    std::vector<std::shared_ptr<const Chunk>> chunks;
    Splitter(chunks).split(text, false, false);
    auto content = std::make_shared<Content>();
    content->pieces.reserve(chunks.size());
    for (auto& chunk : chunks) {
        content->append(std::move(chunk));
    }
    m_content = std::move(content);
}

std::size_t TextBuffer::length() const {
    return m_content->length;
}

std::size_t TextBuffer::lineCount() const {
    return m_content->lineFeeds + 1;
}

TextMetrics TextBuffer::metrics() const {
    return {.lines = isEmpty() ? 0 : lineCount(), .bytes = m_content->utf8Length};
}

std::span<const TextBuffer::Piece> TextBuffer::pieces() const {
    return m_content->pieces;
}

std::size_t TextBuffer::pieceAt(std::size_t position) const {
    assert(position <= length());
    const auto& pieces = m_content->pieces;
    const auto after = std::ranges::upper_bound(pieces, position, {}, &Piece::start);
    return static_cast<std::size_t>(after - pieces.begin()) - 1;
}

std::size_t TextBuffer::lineAt(std::size_t position) const {
    const auto& piece = m_content->pieces[pieceAt(position)];
    const auto& lineFeeds = piece.chunk->lineFeeds;
    const auto offset = position - piece.start;
    const auto passed =
        std::ranges::lower_bound(lineFeeds, offset, {}, [](auto at) { return std::size_t{at}; });
    return piece.firstLine + static_cast<std::size_t>(passed - lineFeeds.begin());
}

std::size_t TextBuffer::lineStart(std::size_t line) const {
    assert(line < lineCount());
    if (line == 0) {
        return 0;
    }
    // The last piece that begins before the line does holds the line feed in front of it.
    const auto& pieces = m_content->pieces;
    const auto next = std::ranges::lower_bound(pieces, line, {}, &Piece::firstLine);
    const auto& piece = *std::prev(next);
    return piece.start + piece.chunk->lineFeeds[line - piece.firstLine - 1] + 1;
}

TextRange TextBuffer::fullLineRange(std::size_t line) const {
    const auto start = lineStart(line);
    const auto end = line + 1 < lineCount() ? lineStart(line + 1) : length();
    return {.location = start, .length = end - start};
}

TextRange TextBuffer::lineRange(std::size_t line) const {
    auto range = fullLineRange(line);
    if (line + 1 < lineCount()) {
        --range.length;
    }
    return range;
}

char16_t TextBuffer::unitAt(std::size_t position) const {
    const auto& piece = m_content->pieces[pieceAt(position)];
    return piece.chunk->text[position - piece.start];
}

std::u16string TextBuffer::text() const {
    return text({.location = 0, .length = length()});
}

std::u16string TextBuffer::text(TextRange range) const {
    assert(range.end() <= length());
    std::u16string result;
    result.reserve(range.length);
    for (auto index = pieceAt(range.location); result.size() < range.length; ++index) {
        const auto& piece = m_content->pieces[index];
        const auto offset = range.location + result.size() - piece.start;
        result.append(piece.chunk->text, offset, range.length - result.size());
    }
    return result;
}

std::u16string_view TextBuffer::view(TextRange range, std::u16string& scratch) const {
    const auto& piece = m_content->pieces[pieceAt(range.location)];
    if (range.end() <= piece.end()) {
        return std::u16string_view(piece.chunk->text).substr(range.location - piece.start, range.length);
    }
    scratch = text(range);
    return scratch;
}

std::string TextBuffer::utf8() const {
    std::string result;
    result.reserve(m_content->utf8Length);
    for (const auto& piece : m_content->pieces) {
        result += lossyUTF8FromUTF16(piece.chunk->text);
    }
    return result;
}

void TextBuffer::replace(TextRange range, std::u16string_view inserted) {
    assert(range.end() <= length());
    if (range.length == 0 && inserted.empty()) {
        return;
    }
    const auto& pieces = m_content->pieces;
    const auto continues = [&](std::size_t index) { return index > 0 && !pieces[index - 1].endsLine(); };

    // The pieces to make anew: those that the edit touches, and those of a line that is left short enough for
    // one.
    auto first = pieceAt(range.location);
    auto last = pieceAt(range.end());
    if (pieces[first].start == range.location && continues(first)) {
        --first;
    }
    if (last > first && pieces[last].start == range.end() && !continues(last)) {
        --last;
    }
    const auto head = range.location - lineStart(lineAt(range.location));
    const auto tailEnd = fullLineRange(lineAt(range.end())).end();
    const auto tail = tailEnd - range.end();
    // How far a line goes on behind a chunk's length makes no difference, so no more is searched.
    const auto beginning = inserted.substr(0, kCapacity);
    const auto ending = inserted.substr(inserted.size() - beginning.size());
    const auto firstFeed = beginning.find(u'\n');
    const auto lastFeed = ending.rfind(u'\n');
    const auto wholeLength = head + inserted.size() + tail;
    const auto firstLength = firstFeed == kNone ? wholeLength : head + firstFeed + 1;
    const auto lastLength = lastFeed == kNone ? wholeLength : ending.size() - lastFeed - 1 + tail;
    if (firstLength <= kCapacity) {
        first = std::min(first, pieceAt(range.location - head));
    }
    // A line that goes on behind the touched pieces must not go on in a piece of whole lines.
    const auto tailPiece = tail > 0 ? pieceAt(tailEnd - 1) : last;
    if (lastLength <= kCapacity || !continues(tailPiece)) {
        last = std::max(last, tailPiece);
    }
    const auto kept = pieces[last].end() - pieces[first].start - range.length;
    if (kept + inserted.size() < kSmallest) {
        if (last + 1 < pieces.size()) {
            ++last;
        } else if (first > 0) {
            --first;
        }
    }

    const auto start = pieces[first].start;
    const auto end = pieces[last].end();
    std::u16string joined;
    auto touched = inserted;
    if (start < range.location || range.end() < end) {
        joined.reserve(end - start - range.length + inserted.size());
        joined += text({.location = start, .length = range.location - start});
        joined += inserted;
        joined += text({.location = range.end(), .length = end - range.end()});
        touched = joined;
    }

    std::vector<std::shared_ptr<const Chunk>> chunks;
    const auto lineGoesOn = last + 1 < pieces.size() && !touched.ends_with(u'\n');
    Splitter(chunks).split(touched, continues(first), lineGoesOn);

    auto content = std::make_shared<Content>();
    content->pieces.reserve(pieces.size() + chunks.size());
    for (std::size_t index = 0; index < first; ++index) {
        content->append(pieces[index].chunk);
    }
    for (auto& chunk : chunks) {
        content->append(std::move(chunk));
    }
    for (auto index = last + 1; index < pieces.size(); ++index) {
        content->append(pieces[index].chunk);
    }
    if (content->pieces.empty()) {
        *this = TextBuffer();
    } else {
        m_content = std::move(content);
    }
}

bool operator==(const TextBuffer& left, const TextBuffer& right) {
    if (left.isSharedWith(right)) {
        return true;
    }
    return left.length() == right.length() &&
           Comparison(left, right).forward(0, 0, left.length()) == left.length();
}

TextChange TextBuffer::difference(const TextBuffer& before, const TextBuffer& after) {
    if (before.isSharedWith(after)) {
        return {};
    }
    const auto old = before.pieces();
    const auto now = after.pieces();
    const auto fewer = std::min(old.size(), now.size());
    std::size_t front = 0;
    while (front < fewer && old[front].chunk == now[front].chunk) {
        ++front;
    }
    std::size_t back = 0;
    while (back < fewer - front && old[old.size() - 1 - back].chunk == now[now.size() - 1 - back].chunk) {
        ++back;
    }
    auto start = front < now.size() ? now[front].start : after.length();
    auto oldEnd = back > 0 ? old[old.size() - back].start : before.length();
    auto newEnd = back > 0 ? now[now.size() - back].start : after.length();

    const Comparison comparison(before, after);
    start += comparison.forward(start, start, std::min({oldEnd - start, newEnd - start, kComparedUnits}));
    const auto equal =
        comparison.backward(oldEnd, newEnd, std::min({oldEnd - start, newEnd - start, kComparedUnits}));
    oldEnd -= equal;
    newEnd -= equal;
    return {.location = start, .removed = oldEnd - start, .inserted = newEnd - start};
}

} // namespace tarnquill
