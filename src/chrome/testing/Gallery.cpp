// Draws every state of the shared widgets on one page, in light and in dark, and saves both as pictures, so
// that a change of the look can be seen at a glance.
#include "chrome/ActivePaneLine.h"
#include "chrome/Alert.h"
#include "chrome/BadgeLabel.h"
#include "chrome/ComboBox.h"
#include "chrome/LabelledControl.h"
#include "chrome/MessageView.h"
#include "chrome/Painting.h"
#include "chrome/PaneButton.h"
#include "chrome/PaneFooter.h"
#include "chrome/PaneHeader.h"
#include "chrome/Popover.h"
#include "chrome/SearchBar.h"
#include "chrome/SegmentedPicker.h"
#include "chrome/Splitter.h"
#include "chrome/TextLabel.h"
#include "chrome/ToolPane.h"
#include "chrome/Toolbar.h"
#include "chrome/WrapLayout.h"

#include <QApplication>
#include <QDir>
#include <QFormLayout>
#include <QHelpEvent>
#include <QHoverEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include <functional>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;

// A few lines of coloured text in place of an editor.
class Sample : public QWidget {
protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), themeColor(ColorRole::background));
        painter.setFont(Theme::instance().font(FontRole::editor));
        using enum ColorRole;
        const QList<std::pair<QString, ColorRole>> lines{
            {u"{"_s, syntaxPunctuation},
            {u"  \"currency\" : \"EUR\","_s, syntaxKey},
            {u"  \"id\" : \"ord_2026_0926_1187\","_s, syntaxString},
            {u"  \"total\" : 184.5"_s, syntaxNumber},
            {u"}"_s, syntaxPunctuation}};
        int y = 25;
        for (const auto& [line, role] : lines) {
            painter.setPen(themeColor(role));
            painter.drawText(12, y, line);
            y += 18;
        }
    }
};

class Card : public QWidget {
public:
    Card(const QString& title, const QRect& place, QWidget* page, QWidget* content) : QWidget(page) {
        auto* label = new TextLabel(title, FontRole::groupTitle, ColorRole::muted, page);
        label->setGeometry(place.left(), place.top() - 20, place.width(), 16);
        setGeometry(place);
        if (content != nullptr) {
            content->setParent(this);
            content->setGeometry(rect().adjusted(1, 1, -1, -1));
        }
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        Painting::box(painter, rect(), 8, themeColor(ColorRole::background), themeColor(ColorRole::border));
    }
};

class Page : public QWidget {
public:
    Page() { setFixedSize(1280, 800); }

    // What has to be done to the page, one after the other, each with the part of the picture it is done for.
    struct Pose {
        std::function<void()> strike;
        QRect area;
    };
    QList<Pose> poses;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter(this).fillRect(rect(), themeColor(ColorRole::sidebar));
    }
};

void hover(QWidget* widget) {
    QHoverEvent enter(QEvent::HoverEnter, QPointF(4, 4), QPointF(4, 4), QPointF(-1, -1));
    QApplication::sendEvent(widget, &enter);
}

ToolPane* pane(const QString& role, QWidget* content, const std::optional<PaneBadge>& badge = {}) {
    auto* pane = new ToolPane(role, content);
    pane->header().setBadge(badge);
    auto* copy = new PaneButton(u"Copy"_s, u"doc.on.doc"_s);
    copy->reserveCopied();
    pane->header().addButton(copy);
    return pane;
}

void addPanes(Page& page) {
    auto* failed = pane(u"Output"_s, new Sample);
    failed->findChild<PaneButton*>()->setEnabled(false);
    failed->showError(
        u"Not Base64"_s,
        u"This is not Base64. It has a character outside the alphabet, or a length no Base64 text can have."_s);
    failed->footer().setMetrics({{u"0 lines"_s}});
    new Card(u"Error in a pane"_s, {24, 40, 296, 232}, &page, failed);

    auto* empty = new MessageView(MessageView::Kind::placeholder);
    empty->setMessage(u"Pick a tool"_s, u"Choose a tool from the sidebar to get started."_s,
                      u"sidebar.left"_s);
    new Card(u"No tool selected"_s, {336, 40, 296, 232}, &page, empty);

    auto* target = pane(u"Input"_s, new Sample);
    target->header().addButton(new PaneButton(u"Clear"_s, u"trash"_s));
    target->footer().setMetrics({{u"5 lines"_s}, {u"72 bytes"_s}});
    new Card(u"Drop target, while a file is dragged over it"_s, {648, 40, 296, 232}, &page, target);
    target->setDropTarget(true);

    auto* busy = pane(u"Output"_s, new Sample, PaneBadge{u"FORMATTED"_s});
    busy->findChild<PaneButton*>()->setEnabled(false);
    new Card(u"Long work: bar after 300 ms, old result dimmed"_s, {960, 40, 296, 232}, &page, busy);
    busy->setBusy(u"Formatting…"_s);
}

void addButtons(Page& page) {
    auto* card = new Card(u"Buttons and toggles"_s, {24, 308, 608, 212}, &page, nullptr);
    const QStringList states{u"Default"_s, u"Hover"_s, u"Pressed"_s, u"Focus ring"_s, u"Disabled"_s};
    const QStringList looks{u"Outlined"_s, u"Pane action"_s, u"Toggle, on"_s, u"Primary"_s};
    for (int row = 0; row < looks.size(); ++row) {
        auto* name = new TextLabel(looks[row], FontRole::note, ColorRole::muted, card);
        name->move(17, 53 + 40 * row);
        name->resize(name->sizeHint());
        for (int column = 0; column < states.size(); ++column) {
            const QStringList titles{u"Open"_s, u"Clear"_s, u"Unpack"_s, u"Open…"_s};
            const QStringList symbols{u"folder-open"_s, u"trash"_s, u"shippingbox"_s, {}};
            const PaneButton::Look shapes[] = {PaneButton::Look::outlined, PaneButton::Look::plain,
                                               PaneButton::Look::outlined, PaneButton::Look::primary};
            auto* button = new PaneButton(titles[row], symbols[row], shapes[row], card);
            button->setTinted(row == 2);
            button->setGeometry(QRect(QPoint(121 + 94 * column, 47 + 40 * row), button->sizeHint()));
            if (column == 1) {
                hover(button);
            }
            button->setDown(column == 2);
            button->setEnabled(column != 4);
            if (column == 3) {
                const QRect place(button->mapTo(&page, QPoint(-6, -6)), button->size() + QSize(12, 12));
                page.poses.append({[button] { button->setFocus(Qt::TabFocusReason); }, place});
            }
        }
    }
    for (int column = 0; column < states.size(); ++column) {
        auto* name = new TextLabel(states[column], FontRole::note, ColorRole::muted, card);
        name->setGeometry(123 + 94 * column, 19, 90, 16);
    }
}

SearchBar* searchBar(QWidget* parent, int y, int scope, const QString& text, const QString& count,
                     bool found) {
    auto* bar = new SearchBar(SearchBar::Parts::withNavigation, parent);
    bar->setScopes({u"All text"_s, u"Keys"_s, u"Values"_s}, {});
    bar->setScope(scope);
    bar->setText(text);
    bar->setCount(count, found);
    bar->setGeometry(17, y, 328, 28);
    return bar;
}

void addControls(Page& page) {
    auto* card = new Card(u"Search, copy flash, tooltip, segmented control, badges"_s, {648, 308, 608, 212},
                          &page, nullptr);
    SearchBar* focused = searchBar(card, 21, 0, u"name"_s, u"3 of 12 matches"_s, true);
    searchBar(card, 69, 1, u"colour"_s, u"No matches"_s, false);
    page.poses.append({[focused] {
                           focused->focusField();
                           focused->field().deselect();
                       },
                       QRect(656, 322, 345, 40)});

    auto* copy = new PaneButton(u"Copy"_s, u"doc.on.doc"_s, PaneButton::Look::plain, card);
    copy->setGeometry(QRect(QPoint(415, 21), copy->sizeHint()));
    auto* copied = new PaneButton(u"Copy"_s, u"doc.on.doc"_s, PaneButton::Look::plain, card);
    copied->reserveCopied();
    copied->setGeometry(QRect(QPoint(512, 21), copied->sizeHint()));
    copied->flashCopied();

    auto* open = new PaneButton(u"Open"_s, u"folder-open"_s, PaneButton::Look::outlined, card);
    open->setIconOnly(true);
    open->setToolTip(u"Open a JSON file (⌘O)"_s);
    open->setGeometry(563, 69, 28, 28);
    page.poses.append({[open] {
                           hover(open);
                           QHelpEvent help(QEvent::ToolTip, QPoint(4, 4), open->mapToGlobal(QPoint(4, 4)));
                           QApplication::sendEvent(open, &help);
                       },
                       QRect(1060, 370, 220, 80)});

    auto* first = new SegmentedPicker({u"Format"_s, u"Minify"_s}, card);
    first->setGeometry(QRect(QPoint(17, 117), first->sizeHint()));
    auto* second = new SegmentedPicker({u"Format"_s, u"Minify"_s}, card);
    second->setGeometry(QRect(QPoint(154, 117), second->sizeHint()));
    second->setCurrentIndex(1);
    page.poses.append({[second] { second->setFocus(Qt::TabFocusReason); },
                       QRect(second->mapTo(&page, QPoint(-6, -6)), second->size() + QSize(12, 12))});

    auto* combo = new ComboBox(card);
    combo->addItems({u"2 spaces"_s, u"4 spaces"_s, u"Tabs"_s});
    combo->setGeometry(320, 117, 92, 28);

    using enum PaneBadge::Tint;
    int x = 17;
    for (const PaneBadge& badge :
         {PaneBadge{u"VALID"_s, ok}, PaneBadge{u"INVALID"_s, bad}, PaneBadge{u"NOT YET VALID"_s, warn},
          PaneBadge{u"EXPIRED"_s, bad}, PaneBadge{u"70 OF 128 ROWS"_s, accent},
          PaneBadge{u"GZIP → JSON"_s, neutral}}) {
        auto* label = new BadgeLabel(badge, card);
        label->setGeometry(QRect(QPoint(x, 169), label->sizeHint()));
        x += label->width() + 6;
    }
}

void addFloating(Page& page) {
    auto* stage = new QWidget(&page);
    stage->setGeometry(0, 530, 500, 250);
    auto* opener = new PaneButton({}, {}, PaneButton::Look::plain, &page);
    opener->setGeometry(504, 543, 10, 8);
    auto* form = new QWidget;
    auto* fields = new QFormLayout(form);
    fields->setContentsMargins(16, 12, 16, 28);
    fields->setVerticalSpacing(8);
    fields->setHorizontalSpacing(24);
    for (const auto& name : {u"Name"_s, u"Status"_s, u"Score"_s, u"Updated"_s}) {
        auto* field = new QLineEdit(name == u"Status"_s ? u"act"_s : QString());
        field->setFixedWidth(196);
        field->setAccessibleName(name);
        auto* label = new TextLabel(name, FontRole::body, ColorRole::muted);
        label->setFixedHeight(28);
        fields->addRow(label, field);
    }
    auto* popover = new Popover(u"Column Filters"_s, form, &page);
    popover->addTitleControl(new PaneButton(u"Clear All"_s, {}));
    page.poses.append({[popover, opener, form] {
                           popover->openBelow(opener);
                           auto* status = form->findChildren<QLineEdit*>().at(1);
                           status->setFocus(Qt::TabFocusReason);
                           status->deselect();
                       },
                       QRect(480, 530, 350, 270)});
}

// The menu is a window of its own: it is drawn beside the page and copied in.
QImage menuPicture(double scale) {
    QMenu menu;
    for (const auto& name : {u"Name"_s, u"Status"_s, u"Score"_s, u"Updated"_s}) {
        QAction* action = menu.addAction(name);
        action->setCheckable(true);
        action->setChecked(name != u"Updated"_s);
    }
    menu.setActiveAction(menu.actions().at(3));
    menu.addSeparator();
    menu.addAction(u"Show All"_s);
    menu.addAction(u"Hide All"_s);
    QMenu* sub = menu.addMenu(u"More"_s);
    sub->addAction(u"One"_s);
    menu.setMinimumWidth(212 + 2 * Painting::kShadowReach);
    menu.popup(QPoint(0, 0));
    menu.setActiveAction(menu.actions().at(3));
    QImage image(menu.size() * scale, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    menu.render(&image, QPoint(), QRegion(), QWidget::DrawWindowBackground | QWidget::DrawChildren);
    menu.close();
    return image;
}

// A whole tool, as wide as beside the sidebar.
void saveTool(const QString& path, const QSize& size) {
    QWidget tool;
    auto* bar = new Toolbar(u"JSON"_s);
    bar->setFilePath(u"/home/alice/orders.json"_s);
    auto* open = new PaneButton(u"Open"_s, u"folder-open"_s, PaneButton::Look::outlined);
    bar->addControl(open);
    bar->addControl(new SegmentedPicker({u"Format"_s, u"Minify"_s}));
    auto* search = new SearchBar(SearchBar::Parts::withNavigation);
    search->setScopes({u"All text"_s, u"Keys"_s, u"Values"_s}, {});
    search->setWidths(240, 400);
    bar->addControl(search);
    QObject::connect(bar, &Toolbar::narrowChanged, open, &PaneButton::setIconOnly);

    auto* input = pane(u"Input"_s, new Sample, PaneBadge{u"VALID"_s, PaneBadge::Tint::ok});
    input->header().addButton(new PaneButton(u"Clear"_s, u"trash"_s));
    input->footer().setMetrics({{u"6 lines"_s}, {u"103 bytes"_s}, {u"4 keys"_s}});
    auto* output = pane(u"Output"_s, new QPlainTextEdit(QString(u"{ \"actions\" }\n"_s).repeated(60)),
                        PaneBadge{u"FORMATTED"_s});
    auto* indent = new ComboBox;
    indent->addItems({u"2 spaces"_s});
    indent->setFixedWidth(92);
    output->header().addOption(new LabelledControl(u"Indent"_s, indent));
    auto* sort = new PaneButton(u"Sort"_s, u"arrow.up"_s, PaneButton::Look::outlined);
    sort->setTinted(true);
    output->header().addOption(sort);
    output->footer().setMetrics({{u"10 lines"_s, u"rows-3"_s}, {u"123 bytes"_s}});
    PaneHeader::alignHeights({&input->header(), &output->header()});

    auto* splitter = new Splitter(Qt::Horizontal);
    splitter->addPane(input, 1, 320);
    splitter->addPane(output, 1, 320);
    splitter->setSizes({size.width() / 2, size.width() / 2});
    auto* column = new QVBoxLayout(&tool);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(bar);
    column->addWidget(splitter, 1);
    ActivePaneLine line(&tool);
    line.addPane(input);
    tool.resize(size);
    tool.show();
    for (int turn = 0; turn < 5; ++turn) {
        QApplication::processEvents();
    }
    tool.grab().save(path);
}

void save(const QString& path) {
    Page page;
    addPanes(page);
    addButtons(page);
    addControls(page);
    addFloating(page);
    page.show();
    page.activateWindow();
    QApplication::processEvents();

    QImage picture = page.grab().toImage();
    QPainter painter(&picture);
    for (const Page::Pose& pose : page.poses) {
        pose.strike();
        for (int turn = 0; turn < 3; ++turn) {
            QApplication::processEvents();
        }
        painter.drawPixmap(pose.area.topLeft(), page.grab(pose.area));
        if (auto* popover = page.findChild<Popover*>()) {
            popover->close();
        }
    }
    painter.drawImage(QPoint(832, 556) - QPoint(Painting::kShadowReach, Painting::kShadowReach),
                      menuPicture(page.devicePixelRatioF()));

    QWidget behind;
    behind.setFixedSize(600, 320);
    behind.show();
    new Alert(
        &behind,
        {u"Support Tarnquill"_s,
         u"Tarnquill is free and has no ads, no analytics and no account. If it saves you time, you can buy me a coffee."_s,
         u"feather"_s,
         {{u"Buy me a coffee"_s, Alert::Role::main},
          {u"Not now"_s, Alert::Role::cancel},
          {u"Don't show again"_s, Alert::Role::optOut}}});
    QApplication::processEvents();
    painter.drawPixmap(QPoint(6, 530), behind.grab(QRect(50, 52, 494, 230)));
    painter.end();
    picture.save(path);
}

} // namespace
} // namespace tarnquill

int main(int argc, char** argv) {
    using namespace Qt::StringLiterals;
    using tarnquill::Appearance;
    using tarnquill::Theme;

    QApplication application(argc, argv);
    Theme::instance().setReducedMotion(true);
    Theme::instance().install(application);
    const QDir folder(application.arguments().value(1, u"."_s));
    for (const Appearance appearance : {Appearance::light, Appearance::dark}) {
        const QString suffix = appearance == Appearance::dark ? u"-dark.png"_s : u"-light.png"_s;
        Theme::instance().setAppearance(appearance);
        tarnquill::save(folder.filePath(u"gallery"_s + suffix));
        tarnquill::saveTool(folder.filePath(u"tool"_s + suffix), {1050, 400});
        tarnquill::saveTool(folder.filePath(u"tool-narrow"_s + suffix), {750, 400});
    }
    return 0;
}
