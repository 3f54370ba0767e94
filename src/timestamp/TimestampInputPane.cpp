#include "timestamp/TimestampInputPane.h"

#include "chrome/LabelledControl.h"
#include "chrome/Painting.h"
#include "chrome/PaneButton.h"
#include "chrome/PaneHeader.h"
#include "chrome/Popover.h"
#include "chrome/SegmentedPicker.h"
#include "chrome/TextLabel.h"
#include "common/CountText.h"
#include "timestamp/DateTimePicker.h"
#include "timestamp/TimestampField.h"
#include "timestamp/TimestampLines.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QStackedLayout>
#include <QVBoxLayout>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

constexpr int kSide = 12;
constexpr int kNoteIcon = 14;

class NoteIcon : public QWidget {
public:
    NoteIcon() { setFixedSize(kNoteIcon, kNoteIcon); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        Painting::symbol(painter, rect(), u"info"_s, kNoteIcon, themeColor(ColorRole::muted));
    }
};

QHBoxLayout* makeRow(QWidget* row) {
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    return layout;
}

} // namespace

TimestampInputPane::TimestampInputPane(TimestampToolViewModel& model, QWidget* parent)
    : QWidget(parent),
      m_model(model),
      m_header(new PaneHeader(tr("Input"))),
      m_unit(new SegmentedPicker({tr("Auto"), u"s"_s, u"ms"_s, u"µs"_s, u"ns"_s})),
      m_copy(new PaneButton(tr("Copy"), u"doc.on.doc"_s)),
      m_clear(new PaneButton(tr("Clear"), u"trash"_s)),
      m_field(new TimestampField),
      m_listTitle(new TextLabel({}, FontRole::timestampInput, ColorRole::text)),
      m_pickTime(new PaneButton(tr("Calendar and clock"), u"calendar-clock"_s)),
      m_picker(new DateTimePicker),
      m_popover(new Popover({}, m_picker, this)),
      m_noteIcon(new NoteIcon),
      m_note(new TextLabel({}, FontRole::note, ColorRole::muted)) {
    setAccessibleName(tr("Input"));
    makeHeader();
    auto* body = new QWidget;
    auto* rows = new QVBoxLayout(body);
    rows->setContentsMargins(kSide, 12, kSide, 12);
    rows->setSpacing(8);
    rows->addWidget(makeInputRow());
    rows->addWidget(makeNoteRow());
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 1); // the line below
    column->setSpacing(0);
    column->addWidget(m_header);
    column->addWidget(body);

    connect(&m_model, &TimestampToolViewModel::textReplaced, this,
            [this] { m_field->setText(m_model.text()); });
    connect(&m_model, &TimestampToolViewModel::resultChanged, this, &TimestampInputPane::showResult);
    connect(&m_model, &TimestampToolViewModel::listShownChanged, this, &TimestampInputPane::showResult);
    m_field->setText(m_model.text());
    m_field->document()->clearUndoRedoStacks();
    connect(m_field, &TimestampField::textChanged, this, [this] { m_model.setText(m_field->text()); });
    connect(m_field, &TimestampField::listPasted, &m_model, &TimestampToolViewModel::take);
    showResult();
}

QWidget* TimestampInputPane::field() const {
    return m_field;
}

void TimestampInputPane::makeHeader() {
    m_unit->setSegmentMinimum(44);
    m_unit->setCurrentIndex(static_cast<int>(m_model.unit()));
    auto* unit = new LabelledControl(tr("Unit"), m_unit);
    unit->setToolTip(
        tr("How to read a number: guessed from its size, or seconds, milliseconds, microseconds or "
           "nanoseconds since 1970"));
    connect(m_unit, &SegmentedPicker::currentIndexChanged, this,
            [this](int index) { m_model.setUnit(static_cast<Timestamp::UnitChoice>(index)); });

    auto* now = new PaneButton(tr("Now"), u"timer-reset"_s);
    now->setToolTip(tr("Read the present moment"));
    connect(now, &PaneButton::clicked, &m_model, &TimestampToolViewModel::useNow);
    auto* pasteButton = new PaneButton(tr("Paste"), u"clipboard-paste"_s);
    pasteButton->setToolTip(tr("Read what is on the clipboard: a time, or a list with one on each line"));
    connect(pasteButton, &PaneButton::clicked, this, &TimestampInputPane::paste);
    m_copy->setToolTip(tr("Copy the input"));
    m_copy->reserveCopied();
    connect(m_copy, &PaneButton::clicked, this, &TimestampInputPane::copy);
    connect(m_clear, &PaneButton::clicked, this, [this] {
        m_model.clear();
        m_field->setFocus();
    });

    // In one piece, so that the buttons wrap together.
    auto* buttons = new QWidget;
    buttons->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    auto* row = makeRow(buttons);
    row->setSpacing(8);
    for (auto* button : {now, pasteButton, m_copy, m_clear}) {
        row->addWidget(button);
    }
    m_header->addOption(unit);
    m_header->addButton(buttons);
}

QWidget* TimestampInputPane::makeInputRow() {
    auto* listRow = new QWidget;
    makeRow(listRow)->addWidget(m_listTitle);
    static_cast<QHBoxLayout*>(listRow->layout())->addStretch();
    auto* stack = new QWidget;
    m_input = new QStackedLayout(stack);
    m_input->addWidget(m_field);
    m_input->addWidget(listRow);

    m_pickTime->setIconOnly(true);
    m_pickTime->setIconExtent(16);
    m_pickTime->setToolTip(tr("Pick a date and a time on the local clock"));
    connect(m_pickTime, &PaneButton::clicked, this, [this] {
        m_picker->setTime(m_model.localTime());
        m_popover->openBelow(m_pickTime);
    });
    connect(m_picker, &DateTimePicker::timePicked, &m_model, &TimestampToolViewModel::setLocalTime);

    auto* row = new QWidget;
    auto* layout = makeRow(row);
    layout->addWidget(stack, 1);
    layout->addWidget(m_pickTime);
    return row;
}

QWidget* TimestampInputPane::makeNoteRow() {
    m_note->setYields(true);
    auto* row = new QWidget;
    row->setFixedHeight(Theme::lineHeight(FontRole::note));
    auto* layout = makeRow(row);
    layout->addWidget(m_noteIcon);
    layout->addWidget(m_note, 1);
    return row;
}

void TimestampInputPane::showResult() {
    const auto isList = m_model.isListShown();
    m_input->setCurrentIndex(isList ? 1 : 0);
    const auto& lines = m_model.lines().lines();
    const auto count = QString::fromStdString(countText(lines ? lines->size() : 0, "line", "lines"));
    m_listTitle->setText(count);

    using enum PaneBadge::Tint;
    std::optional<PaneBadge> badge;
    if (isList) {
        badge = PaneBadge{.text = tr("LIST"), .tint = accent};
    } else if (!m_model.failure()) {
        badge = PaneBadge{.text = m_model.formName().toUpper(), .tint = accent};
    } else if (m_model.failure() != Timestamp::Failure::empty) {
        badge = PaneBadge{.text = tr("NOT READ"), .tint = bad};
    }
    m_header->setBadge(badge);

    const auto note =
        isList ? tr("Each line is read by itself. Clear goes back to the single input.") : m_model.note();
    showNote(note);
    m_copy->setEnabled(isList || !m_model.text().isEmpty());
    m_clear->setEnabled(isList || !m_model.text().isEmpty());
    m_clear->setToolTip(isList ? tr("Close the list") : tr("Empty the input"));
}

void TimestampInputPane::showNote(const QString& note) {
    m_note->setText(note);
    m_note->setToolTip(note);
    m_noteIcon->setVisible(!note.isEmpty());
}

void TimestampInputPane::paste() {
    const auto text = QGuiApplication::clipboard()->text();
    if (text.trimmed().isEmpty()) {
        showNote(tr("There is no text on the clipboard."));
    } else {
        m_model.take(text);
    }
}

void TimestampInputPane::copy() {
    QGuiApplication::clipboard()->setText(m_model.input());
    m_copy->flashCopied();
}

void TimestampInputPane::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), themeColor(ColorRole::background));
    painter.fillRect(0, height() - 1, width(), 1, themeColor(ColorRole::border));
}

} // namespace tarnquill
