#include "common/JSONParser.h"

#include <algorithm>
#include <utility>

namespace tarnquill {

namespace {

// The size from which a text takes longer to parse than a thread takes to start.
constexpr std::ptrdiff_t kWorthAThread = std::ptrdiff_t{1} << 20;

constexpr std::string_view kWhiteSpace = " \n\r\t";

} // namespace

void JSONParser::startRun() {
    const auto size = m_end - m_start;
    if (size < kWorthAThread) {
        return;
    }
    if (const auto* place = likelyElement(m_start + size / 2); place != nullptr) {
        m_meeting = place;
        m_coming =
            std::async(std::launch::async | std::launch::deferred, [this, place] { return runFrom(place); });
    }
}

// Runs on the second thread, and so reads nothing that the first one changes.
std::optional<JSONParser::Run> JSONParser::runFrom(const char* place) const {
    // The first guess may lie in a small array within an element of the large one, or in a text.
    constexpr int kMostGuesses = 8;
    for (int guess = 0; guess < kMostGuesses && place != nullptr; ++guess) {
        Run run{.parser = std::make_unique<JSONParser>(std::string_view(m_start, m_end)),
                .start = place,
                .end = nullptr};
        run.end = run.parser->parseElements(place, run.count);
        const auto* reached = run.end != nullptr ? run.end : m_start + run.parser->m_fault.offset;
        if (reached - place >= (m_end - place) / 2) {
            return run.end != nullptr ? std::optional(std::move(run)) : std::nullopt;
        }
        place = likelyElement(reached);
    }
    return std::nullopt;
}

// Where a container begins that a comma and, before it, the end of another container precede.
const char* JSONParser::likelyElement(const char* start) const {
    constexpr std::ptrdiff_t kFarthest = std::ptrdiff_t{64} << 10;
    const auto* end = start + std::min(m_end - start, kFarthest);
    for (const auto* comma = std::find(start, end, ','); comma != end;
         comma = std::find(comma + 1, end, ',')) {
        const auto before = std::string_view(start, comma).find_last_not_of(kWhiteSpace);
        const auto* element = pastSpace(comma + 1);
        if (before != std::string_view::npos && (start[before] == '}' || start[before] == ']') &&
            (isAt(element, '{') || isAt(element, '['))) {
            return element;
        }
    }
    return nullptr;
}

// The elements that the run has from here on or, when there are none, one element.
const char* JSONParser::parseWithRun(const char* start, std::size_t& count) {
    if (m_coming.valid()) {
        m_run = m_coming.get();
        m_meeting = m_run ? m_run->start : m_end;
        return start < m_meeting ? parseValue(start) : parseWithRun(start, count);
    }
    m_meeting = m_end;
    if (!m_run || m_run->start != start || m_depth + m_run->parser->m_deepest > JSONReader::kDeepestNesting) {
        return parseValue(start);
    }
    const auto run = *std::exchange(m_run, std::nullopt);
    m_tape.append(run.parser->m_tape);
    m_droppedDuplicates += run.parser->m_droppedDuplicates;
    if (!m_overflow) {
        m_overflow = run.parser->m_overflow;
    }
    count += run.count - 1;
    return run.end;
}

} // namespace tarnquill
