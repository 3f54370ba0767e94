#include "timestamp/TimestampToolView.h"

#include "chrome/ActivePaneLine.h"
#include "chrome/LabelledControl.h"
#include "chrome/MessageView.h"
#include "chrome/PaneButton.h"
#include "chrome/PaneFooter.h"
#include "chrome/PaneHeader.h"
#include "chrome/Splitter.h"
#include "chrome/ToolPane.h"
#include "chrome/Toolbar.h"
#include "common/CountText.h"
#include "timestamp/LineTable.h"
#include "timestamp/OutputRows.h"
#include "timestamp/TimestampInputPane.h"
#include "timestamp/TimestampLines.h"
#include "timestamp/ZoneButton.h"
#include "timestamp/ZoneList.h"
#include "timestamp/ZonePicker.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <chrono>

namespace tarnquill {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int kOutputMinimum = 360;
constexpr int kZonesMinimum = 308;
constexpr int kZonesWidth = 420;
constexpr int kIdealWidth = 1'050;

QString counted(std::size_t count, std::string_view one, std::string_view many) {
    return QString::fromStdString(countText(count, one, many));
}

QString titleOf(Timestamp::Failure failure) {
    return failure == Timestamp::Failure::outOfRange ? TimestampToolView::tr("Out of range")
                                                     : TimestampToolView::tr("Not a time");
}

QString textOf(Timestamp::Failure failure) {
    return QString::fromUtf8(message(failure));
}

} // namespace

TimestampToolView::TimestampToolView(TimestampToolViewModel& model, QWidget* parent)
    : ToolView(tr("Timestamp"), parent),
      m_model(model),
      m_localZone(new ZoneButton),
      m_localZonePicker(new ZonePicker(tr("Local Zone"), m_zones, this)),
      m_otherZonePicker(new ZonePicker(tr("Add Zone"), m_zones, this)),
      m_useSystemZone(new PaneButton(tr("Use System Zone"), {})),
      m_output(new QStackedWidget),
      m_rows(new OutputRows),
      m_table(new LineTable(model)),
      m_prompt(new MessageView(MessageView::Kind::placeholder)),
      m_copyAll(new PaneButton(tr("Copy All"), u"doc.on.doc"_s)),
      m_addZone(new PaneButton(tr("Add Zone"), u"plus"_s)),
      m_outputPane(new ToolPane(tr("Output"), m_output)),
      m_zonesPane(new ToolPane(tr("Other zones"), new ZoneList(model))) {
    makeToolbar();
    makeOutputPane();
    makeZonesPane();
    // First of all, because Tab meets the rows in the order in which they and the panes come into the view.
    showResult();
    showZoneCount();
    auto* splitter = new Splitter(Qt::Horizontal);
    splitter->addPane(m_outputPane, 1, kOutputMinimum);
    splitter->addPane(m_zonesPane, 0, kZonesMinimum);
    const auto divide = [splitter](int width, int zonesWidth) {
        splitter->setSizes({width - zonesWidth, zonesWidth});
    };
    divide(kIdealWidth, kZonesWidth);
    connect(&toolbar(), &Toolbar::narrowChanged, this, [this, divide](bool isNarrow) {
        divide(toolbar().width(), isNarrow ? kZonesMinimum : kZonesWidth);
    });
    PaneHeader::alignHeights({&m_outputPane->header(), &m_zonesPane->header()});

    auto* input = new TimestampInputPane(m_model);
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(input);
    column->addWidget(splitter, 1);
    setContent(content);
    setFirstFocus(input->field());
    auto* activeLine = new ActivePaneLine(this);
    for (auto* pane : {static_cast<QWidget*>(input), static_cast<QWidget*>(m_outputPane),
                       static_cast<QWidget*>(m_zonesPane)}) {
        activeLine->addPane(pane);
    }

    m_clock.setInterval(1s);
    connect(&m_clock, &QTimer::timeout, &m_model, &TimestampToolViewModel::refresh);
    connect(&m_model, &TimestampToolViewModel::resultChanged, this, &TimestampToolView::showResult);
    connect(&m_model, &TimestampToolViewModel::listShownChanged, this, &TimestampToolView::showResult);
    connect(&m_model, &TimestampToolViewModel::localZoneChanged, this, &TimestampToolView::showLocalZone);
    connect(&m_model, &TimestampToolViewModel::zonesChanged, this, &TimestampToolView::showZoneCount);
}

bool TimestampToolView::isWorking() const {
    return m_model.listTask().isPending();
}

void TimestampToolView::showEvent(QShowEvent* event) {
    ToolView::showEvent(event);
    m_model.refresh();
    m_clock.start();
}

void TimestampToolView::hideEvent(QHideEvent* event) {
    m_clock.stop();
    ToolView::hideEvent(event);
}

void TimestampToolView::makeToolbar() {
    toolbar().addControl(new LabelledControl(tr("Local zone"), m_localZone));
    m_localZonePicker->addTitleControl(m_useSystemZone);
    connect(m_localZone, &ZoneButton::pickRequested, this, &TimestampToolView::pickLocalZone);
    connect(m_localZonePicker, &ZonePicker::zonePicked, &m_model, &TimestampToolViewModel::setLocalZone);
    connect(m_useSystemZone, &PaneButton::clicked, this, [this] {
        m_localZonePicker->close();
        m_model.setLocalZone({});
    });
}

void TimestampToolView::makeOutputPane() {
    for (auto* page :
         {static_cast<QWidget*>(m_rows), static_cast<QWidget*>(m_table), static_cast<QWidget*>(m_prompt)}) {
        m_output->addWidget(page);
    }
    m_prompt->setMessage(tr("No time yet"), textOf(Timestamp::Failure::empty), u"clock"_s);
    m_outputPane->follow(m_model.listTask(), tr("Reading…"));
    m_outputPane->header().addButton(m_copyAll);
    m_copyAll->reserveCopied();
    connect(m_copyAll, &PaneButton::clicked, this, &TimestampToolView::copyAll);
    connect(&m_model, &TimestampToolViewModel::linesCopied, this, [this](const QString& text) {
        QGuiApplication::clipboard()->setText(text);
        m_copyAll->flashCopied();
    });
}

void TimestampToolView::makeZonesPane() {
    m_addZone->setToolTip(tr("Show the instant in one more zone"));
    m_zonesPane->header().addButton(m_addZone);
    connect(m_addZone, &PaneButton::clicked, this, &TimestampToolView::pickOtherZone);
    connect(m_otherZonePicker, &ZonePicker::zonePicked, &m_model, &TimestampToolViewModel::addZone);
}

void TimestampToolView::showResult() {
    const auto isList = m_model.isListShown();
    const auto& lines = m_model.lines().lines();
    const auto rows = m_model.rows();
    const auto hasContent = isList ? lines != nullptr && lines->size() > 0 : rows.has_value();
    m_copyAll->setEnabled(hasContent);
    m_copyAll->setToolTip(isList ? tr("Copy the table with tabs between its columns")
                                 : tr("Copy all values with their labels"));

    if (isList) {
        showPage(m_table);
    } else if (rows) {
        m_rows->setRows(*rows);
        showPage(m_rows);
    } else if (const auto failure = m_model.failure().value(); failure == Timestamp::Failure::empty) {
        showPage(m_prompt);
    } else {
        m_outputPane->showError(titleOf(failure), textOf(failure));
    }
    showLocalZone();
}

void TimestampToolView::showPage(QWidget* page) {
    m_output->setCurrentWidget(page);
    m_outputPane->showContent();
}

void TimestampToolView::showLocalZone() {
    m_localZone->setZone(m_model.localZone(), m_model.localOffset());

    QList<Metric> metrics;
    if (m_model.isListShown()) {
        const auto& lines = m_model.lines().lines();
        metrics.append({.text = counted(lines ? lines->size() : 0, "line", "lines")});
        if (lines && lines->failureCount() > 0) {
            metrics.append({.text = tr("%1 not read").arg(counted(lines->failureCount(), "line", "lines")),
                            .color = ColorRole::badText});
        }
    } else {
        const auto rows = m_model.rows();
        metrics.append({.text = counted(rows ? rows->size() : 0, "value", "values")});
    }
    if (m_model.isLocalZoneKnown()) {
        metrics.append({.text = tr("Local zone %1").arg(m_model.localOffset())});
    } else {
        metrics.append({.text = tr("The system's time zone is unknown: local times are in UTC"),
                        .color = ColorRole::badText});
    }
    m_outputPane->footer().setMetrics(metrics);
}

void TimestampToolView::showZoneCount() {
    const auto count = static_cast<std::size_t>(m_model.otherZoneNames().size());
    m_zonesPane->footer().setMetrics({{.text = counted(count, "zone", "zones")}});
}

void TimestampToolView::copyAll() {
    if (m_model.isListShown()) {
        m_model.copyLines(0, m_model.lines().rowCount());
        return;
    }
    QString text;
    const auto rows = m_model.rows().value();
    for (const auto& row : rows) {
        text += QString::fromUtf8(row.label) + u'\t' + QString::fromStdString(row.value) + u'\n';
    }
    QGuiApplication::clipboard()->setText(text);
    m_copyAll->flashCopied();
}

void TimestampToolView::pickLocalZone() {
    m_useSystemZone->setEnabled(!m_model.followsSystemZone());
    m_localZonePicker->openBelow(m_localZone, m_model.instantOrNow().seconds, {m_model.localZone()});
}

void TimestampToolView::pickOtherZone() {
    m_otherZonePicker->openBelow(m_addZone, m_model.instantOrNow().seconds, m_model.otherZoneNames());
}

} // namespace tarnquill
