// What panes that show a text have in common: its sizes in the footer, and copying it.
#pragma once

#include "chrome/PaneFooter.h"
#include "common/TextBuffer.h"

#include <string_view>

namespace tarnquill {

class PaneButton;

// "1 line", "1,204 lines".
[[nodiscard]] Metric countMetric(std::size_t count, std::string_view one, std::string_view many);
[[nodiscard]] Metric lineMetric(std::size_t lines);
[[nodiscard]] Metric byteMetric(std::size_t bytes);

// The lines and bytes of a text.
[[nodiscard]] QList<Metric> sizeMetrics(const TextBuffer& text);

// Puts the text on the clipboard, and the button says so.
void copyText(const TextBuffer& text, PaneButton& button);

} // namespace tarnquill
