#include "csv/CSVParser.h"

#include "common/ByteBlocks.h"
#include "common/LargeString.h"
#include "common/TextDecoding.h"
#include "csv/CSVNumber.h"

#include <boost/uuid/random_generator.hpp>

#include <algorithm>
#include <array>
#include <utility>

namespace tarnquill::CSVParser {

namespace {

// The characters that end a run of plain ones: two or three, told by comparing a block of text at once.
class StopCharacters {
public:
    constexpr StopCharacters(char first, char second, char third) : m_characters{first, second, third} {}
    constexpr StopCharacters(char first, char second) : StopCharacters(first, second, second) {}

    [[nodiscard]] bool contains(char character) const {
        return std::ranges::find(m_characters, character) != m_characters.end();
    }

    // Copies characters from `in` to `out` up to the first of these, or to the end, and moves both behind the
    // copied ones. There must be as much room at `out` as there is text.
    void copyUpTo(const char*& in, const char* end, char*& out) const {
        const auto [first, second, third] = m_characters;
        while (end - in >= kBlockSize) {
            const auto block = ByteBlocks::load(in);
            block.copy_to(out, ByteBlocks::simd::element_aligned);
            const auto stops = block == first || block == second || block == third;
            const auto count = any_of(stops) ? find_first_set(stops) : kBlockSize;
            in += count;
            out += count;
            if (count < kBlockSize) {
                return;
            }
        }
        while (in < end && !contains(*in)) {
            *out++ = *in++;
        }
    }

private:
    static constexpr std::ptrdiff_t kBlockSize{ByteBlocks::kSize};

    std::array<char, 3> m_characters;
};

// The first character after the line end (LF, CR or CR LF) that begins at `at`.
const char* afterLineEnd(const char* at, const char* end) {
    return at + (*at == '\r' && at + 1 < end && at[1] == '\n' ? 2 : 1);
}

} // namespace

class DocumentBuilder {
public:
    DocumentBuilder(std::string_view text, char delimiter, const std::stop_token& stop)
        : m_in(text.data()),
          m_end(text.data() + text.size()),
          m_stop(stop),
          m_fieldEnds{delimiter, '\n', '\r'} {
        m_document.m_id = boost::uuids::random_generator()();
        m_document.m_delimiter = delimiter;
        m_document.m_text = stringWithRoomFor(text.size());
        m_document.m_fields.reserve(likelyFieldCount());
    }

    Document build(HeaderRow header) && {
        // The fields are never longer than the text that they are taken from.
        const auto room = static_cast<std::size_t>(m_end - m_in);
        m_document.m_text.resize_and_overwrite(room, [this](char* start, std::size_t) {
            split(start);
            return m_document.m_fields.back();
        });
        if (header == HeaderRow::first && m_document.m_records.size() > 1) {
            m_document.m_header = HeaderRow::first;
        }
        countColumns();
        findNumericColumns();
        return std::move(m_document);
    }

private:
    // Going by the beginning of the text, with some room: growing would copy what is there, and take twice
    // its memory.
    [[nodiscard]] std::size_t likelyFieldCount() const {
        constexpr std::ptrdiff_t kSample = 1 << 16;
        const auto size = std::min(m_end - m_in, kSample);
        const auto ends =
            std::count_if(m_in, m_in + size, [this](char c) { return m_fieldEnds.contains(c); });
        return size == 0 ? 0 : static_cast<std::size_t>((m_end - m_in) * ends / size * 11 / 10 + 16);
    }

    void split(char* const start) {
        m_out = start;
        while (!m_stop.stop_requested()) {
            if (m_in < m_end && *m_in == '"') {
                takeQuoted();
            }
            m_fieldEnds.copyUpTo(m_in, m_end, m_out);
            m_document.m_fields.push_back(static_cast<std::uint32_t>(m_out - start));
            if (m_in == m_end) {
                finishRecord();
                return;
            }
            if (*m_in == m_document.m_delimiter) {
                ++m_in;
            } else {
                m_in = afterLineEnd(m_in, m_end);
                finishRecord();
            }
        }
    }

    // Takes from the opening quotation mark to the closing one, or to the end of the text.
    void takeQuoted() {
        static constexpr StopCharacters kSpecial{'"', '\r'};
        ++m_in;
        while (true) {
            kSpecial.copyUpTo(m_in, m_end, m_out);
            if (m_in == m_end) {
                return;
            }
            if (*m_in == '\r') {
                *m_out++ = '\n';
                m_in = afterLineEnd(m_in, m_end);
            } else if (m_in + 1 < m_end && m_in[1] == '"') {
                *m_out++ = '"';
                m_in += 2;
            } else {
                ++m_in;
                return;
            }
        }
    }

    void finishRecord() {
        auto& fields = m_document.m_fields;
        auto& records = m_document.m_records;
        const auto count = static_cast<std::uint32_t>(fields.size() - 1);
        if (count - records.back() == 1 && fields[count] == fields[count - 1]) {
            fields.pop_back(); // a blank record
            return;
        }
        records.push_back(count);
    }

    void countColumns() {
        std::size_t columns = 0;
        for (std::size_t record = 0; record + 1 < m_document.m_records.size(); ++record) {
            columns = std::max(columns, m_document.fieldCount(record));
        }
        m_document.m_isNumeric.resize(columns);
        for (auto record = m_document.headerCount(); record + 1 < m_document.m_records.size(); ++record) {
            m_document.m_paddedRowCount += m_document.fieldCount(record) < columns ? 1U : 0U;
        }
    }

    void findNumericColumns() {
        enum class Cells : std::uint8_t { blank, numbers, texts };
        std::vector<Cells> columns(m_document.columnCount(), Cells::blank);
        for (auto record = m_document.headerCount();
             record + 1 < m_document.m_records.size() && !m_stop.stop_requested(); ++record) {
            const auto fields = m_document.fieldCount(record);
            for (std::size_t column = 0; column < fields; ++column) {
                if (columns[column] == Cells::texts) {
                    continue;
                }
                if (const auto cell = trimmed(m_document.field(record, column)); !cell.empty()) {
                    columns[column] = CSVNumber::isNumber(cell) ? Cells::numbers : Cells::texts;
                }
            }
        }
        std::transform(columns.begin(), columns.end(), m_document.m_isNumeric.begin(),
                       [](Cells cells) { return cells == Cells::numbers; });
    }

    Document m_document;
    const char* m_in;
    const char* m_end;
    char* m_out = nullptr;
    std::stop_token m_stop;
    StopCharacters m_fieldEnds;
};

Document parse(std::string_view text, const Options& options, const std::stop_token& stop) {
    const auto content = withoutByteOrderMark(text);
    const auto delimiter = options.delimiter ? *options.delimiter : detectDelimiter(content);
    return DocumentBuilder(content, delimiter, stop).build(options.header);
}

Column Document::column(std::size_t id) const {
    const auto name = nameInHeader(id);
    return {.id = id, .name = name ? std::string(*name) : columnName(id), .isNumeric = m_isNumeric[id]};
}

std::optional<std::string_view> Document::nameInHeader(std::size_t column) const {
    const auto name = hadHeader() ? field(0, column) : std::string_view();
    return trimmed(name).empty() ? std::nullopt : std::optional(name);
}

std::string_view Document::rowText(std::size_t row) const {
    const auto record = row + headerCount();
    return text(m_records[record], fieldCount(record));
}

std::span<const std::uint32_t> Document::rowBounds(std::size_t row) const {
    const auto record = row + headerCount();
    return std::span(m_fields).subspan(m_records[record], fieldCount(record) + 1);
}

char detectDelimiter(std::string_view text) {
    constexpr std::array kCandidates{',', '\t', ';', '|'}; // ties go to the earlier one
    constexpr int kSampleRecords = 5;
    using Counts = std::array<std::size_t, kCandidates.size()>;

    std::vector<Counts> sample;
    Counts counts{};
    auto isEmpty = true;
    auto isQuoted = false;
    const auto finishRecord = [&] {
        if (!isEmpty) {
            sample.push_back(std::exchange(counts, {}));
            isEmpty = true;
        }
    };
    for (const auto character : text) {
        if (!isQuoted && (character == '\n' || character == '\r')) {
            finishRecord();
            if (sample.size() == kSampleRecords) {
                break;
            }
            continue;
        }
        isEmpty = false;
        if (character == '"') {
            isQuoted = !isQuoted;
        } else if (!isQuoted) {
            for (std::size_t i = 0; i < kCandidates.size(); ++i) {
                counts[i] += character == kCandidates[i] ? 1U : 0U;
            }
        }
    }
    finishRecord();

    auto best = kCandidates.front();
    std::size_t bestScore = 0;
    for (std::size_t i = 0; i < kCandidates.size(); ++i) {
        std::size_t first = 0;
        std::size_t matching = 0;
        for (const auto& record : sample) {
            if (first == 0) {
                first = record[i];
            }
            matching += first != 0 && record[i] == first ? 1U : 0U;
        }
        if (const auto score = matching * 1000 + first; score > bestScore) {
            best = kCandidates[i];
            bestScore = score;
        }
    }
    return best;
}

std::string columnName(std::size_t index) {
    std::string name;
    for (auto rest = index + 1; rest > 0; rest = (rest - 1) / 26) {
        name.insert(name.begin(), static_cast<char>('A' + (rest - 1) % 26));
    }
    return name;
}

} // namespace tarnquill::CSVParser
