#include "chrome/PaneText.h"

#include "chrome/PaneButton.h"
#include "chrome/TextMimeData.h"
#include "common/CountText.h"

#include <QClipboard>
#include <QGuiApplication>

namespace tarnquill {

Metric countMetric(std::size_t count, std::string_view one, std::string_view many) {
    return {.text = QString::fromStdString(countText(count, one, many))};
}

Metric lineMetric(std::size_t lines) {
    return countMetric(lines, "line", "lines");
}

Metric byteMetric(std::size_t bytes) {
    return {.text = QString::fromStdString(byteCountText(bytes))};
}

QList<Metric> sizeMetrics(const TextBuffer& text) {
    const auto metrics = text.metrics();
    return {lineMetric(metrics.lines), byteMetric(metrics.bytes)};
}

void copyText(const TextBuffer& text, PaneButton& button) {
    QGuiApplication::clipboard()->setMimeData(
        new TextMimeData(text, {.location = 0, .length = text.length()}));
    button.flashCopied();
}

} // namespace tarnquill
