#include "timestamp/OutputRows.h"

#include "chrome/TextLabel.h"
#include "timestamp/TimestampRows.h"
#include "timestamp/ValueRow.h"

#include <QVBoxLayout>

#include <array>

namespace tarnquill {

namespace {

constexpr int kAboveFirst = 16;
constexpr int kAboveTitle = 12;
constexpr int kBelowTitle = 4;
constexpr int kSide = 12;

QString titleOf(Timestamp::Family family) {
    switch (family) {
    case Timestamp::Family::unix:
        return OutputRows::tr("Unix time");
    case Timestamp::Family::dates:
        return OutputRows::tr("Dates");
    case Timestamp::Family::calendar:
        return OutputRows::tr("Calendar");
    }
    Q_UNREACHABLE();
}

} // namespace

OutputRows::OutputRows(QWidget* parent) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    auto* list = new QWidget;
    list->setBackgroundRole(QPalette::Base);
    list->setAutoFillBackground(true);
    new QVBoxLayout(list);
    setWidget(list);
}

void OutputRows::setRows(std::span<const Timestamp::Row> rows) {
    if (m_rows.empty()) {
        auto* column = static_cast<QVBoxLayout*>(widget()->layout());
        column->setContentsMargins(0, kAboveFirst - kAboveTitle, 0, kAboveFirst);
        column->setSpacing(0);
        std::optional<Timestamp::Family> family;
        for (const auto& row : rows) {
            if (std::exchange(family, row.family) != row.family) {
                auto* title = new QHBoxLayout;
                title->setContentsMargins(kSide, kAboveTitle, kSide, kBelowTitle);
                title->addWidget(new TextLabel(titleOf(row.family), FontRole::groupTitle, ColorRole::muted));
                title->addStretch();
                column->addLayout(title);
            }
            m_rows.push_back(new ValueRow(QString::fromUtf8(row.label)));
            column->addWidget(m_rows.back());
        }
        column->addStretch();
    }
    for (std::size_t index = 0; index < rows.size(); ++index) {
        m_rows[index]->setValue(QString::fromStdString(rows[index].value));
    }
}

} // namespace tarnquill
