#include "csv/CSVValuePanel.h"

#include "chrome/CodeEditor.h"
#include "chrome/Painting.h"
#include "chrome/PaneButton.h"
#include "chrome/PaneText.h"
#include "chrome/TextLabel.h"
#include "common/UnicodeText.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <utility>

namespace tarnquill {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int kTitleHeight = 36;

} // namespace

CSVValuePanel::CSVValuePanel(QWidget* parent)
    : QWidget(parent),
      m_title(new TextLabel({}, FontRole::control, ColorRole::muted)),
      m_copy(new PaneButton(tr("Copy"), u"doc.on.doc"_s)),
      m_text(new CodeEditor) {
    m_text->setReadOnly(true);
    m_text->setAccessibleName(tr("Whole value"));
    m_copy->setIconOnly(true);
    m_copy->setToolTip(tr("Copy the value"));
    connect(m_copy, &PaneButton::clicked, this, [this] { copyText(m_text->buffer(), *m_copy); });
    auto* const close = new PaneButton(tr("Close"), u"x"_s);
    close->setIconOnly(true);
    close->setToolTip(tr("Close the value (Esc)"));
    connect(close, &PaneButton::clicked, this, &CSVValuePanel::closeRequested);

    auto* const title = new QHBoxLayout;
    title->setContentsMargins(12, 4, 8, 4);
    title->setSpacing(4);
    m_title->setYields(true);
    title->addWidget(m_title, 1);
    title->addWidget(m_copy);
    title->addWidget(close);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(title);
    column->addWidget(m_text, 1);
}

// In the background, for a cell may hold megabytes.
void CSVValuePanel::showCell(const QString& title, std::shared_ptr<const CSVParser::Document> document,
                             CSVParser::RowID row, std::size_t column) {
    m_title->setText(title);
    m_task.start(
        0ms,
        [document = std::move(document), row, column](const std::stop_token& /*stop*/) {
            return TextBuffer(utf16FromUTF8(document->cell(row, column)).value_or(std::u16string()));
        },
        [this](const TextBuffer& text) { m_text->setBuffer(text); });
}

void CSVValuePanel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), themeColor(ColorRole::background));
    painter.fillRect(0, kTitleHeight - 1, width(), 1, themeColor(ColorRole::hairline));
}

} // namespace tarnquill
