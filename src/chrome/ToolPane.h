// The common design of a tool's panes: a header, the content, and a footer; with the states that a pane can
// be in.
#pragma once

#include <QString>
#include <QWidget>

namespace tarnquill {

class BusyOverlay;
class DropOverlay;
class LatestTask;
class MessageView;
class PaneFooter;
class PaneHeader;

class ToolPane : public QWidget {
    Q_OBJECT

public:
    // The pane takes ownership of the content.
    ToolPane(const QString& role, QWidget* content, QWidget* parent = nullptr);

    [[nodiscard]] PaneHeader& header() const { return *m_header; }
    [[nodiscard]] PaneFooter& footer() const { return *m_footer; }
    [[nodiscard]] QWidget* content() const { return m_content; }

    // A widget between the header and the content, such as a find bar.
    void addBar(QWidget* bar);

    // An error in place of the content, never beside it. With `linkHelp` its text leads somewhere
    // (errorActivated()).
    void showError(const QString& title, const QString& text, const QString& linkHelp = {});
    void showContent();
    [[nodiscard]] bool showsError() const;

    // Long work on this pane's content: the old content fades, a bar moves, the footer says the verb
    // ("Formatting…").
    void setBusy(const QString& verb);
    // Does so by itself whenever that task takes long. Where Escape cancels, it is the key that the user can
    // press in the pane meanwhile; the task must not be gone before the pane.
    enum class Escape { ignored, cancels };
    void follow(LatestTask& task, const QString& verb, Escape escape = Escape::ignored);

    // While a file is dragged over the pane.
    void setDropTarget(bool isTarget);

    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    void errorActivated();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    PaneHeader* m_header;
    PaneFooter* m_footer;
    QWidget* m_body;
    QWidget* m_content;
    MessageView* m_error;
    BusyOverlay* m_busy;
    DropOverlay* m_drop;
    LatestTask* m_cancellable = nullptr;
};

} // namespace tarnquill
