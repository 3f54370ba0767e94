#include "common/JSONParser.h"

#include <algorithm>
#include <utility>

namespace tarnquill {

namespace {

constexpr std::string_view kWhiteSpace = " \n\r\t";

} // namespace

void JSONParser::startRun() {
    const std::string_view text(m_start, m_end);
    if (text.size() < kWorthAThread) {
        return;
    }
    if (const auto* place = likelyElement(m_start + text.size() / 2); place != nullptr) {
        m_meeting = place;
        m_coming = std::async(std::launch::async | std::launch::deferred,
                              [this, place, tape = m_tape.secondPart()] { return runFrom(place, tape); });
    }
}

// Runs on the second thread, and so reads nothing that the first one changes.
std::optional<JSONParser::Run> JSONParser::runFrom(const char* place, const JSONTape& tape) const {
    // The first guess may lie in a small array within an element of the large one, or in a text.
    constexpr int kMostGuesses = 8;
    for (int guess = 0; guess < kMostGuesses && place != nullptr; ++guess) {
        Run run{.parser = std::unique_ptr<JSONParser>(new JSONParser({m_start, m_end}, tape)),
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

// The elements that the run has from here on or, when there are none, one element. Takes the word of the
// element before this one.
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
    m_tape.goOn(run.parser->m_tape);
    m_droppedDuplicates += run.parser->m_droppedDuplicates;
    if (!m_overflow) {
        m_overflow = run.parser->m_overflow;
    }
    count += run.count - 1;
    return run.end;
}

} // namespace tarnquill
