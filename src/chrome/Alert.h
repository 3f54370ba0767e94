// Asks for the user's attention in the middle of its window and lets nothing else be done there until it is
// answered.
#pragma once

#include <QList>
#include <QPointer>
#include <QWidget>

namespace tarnquill {

class PaneButton;

class Alert : public QWidget {
    Q_OBJECT

public:
    enum class Role {
        main,   // the filled button, at the far end; Return presses it
        cancel, // beside it; Escape presses it
        optOut, // plain, at the near end
    };

    struct Button {
        QString title;
        Role role;
    };

    struct Content {
        QString message;     // one line in bold
        QString informative; // what there is to say about it
        QString symbol;      // in a tinted box at the side; may be empty
        QList<Button> buttons;
    };

    // Shows itself over `window` and deletes itself once it is answered.
    Alert(QWidget* window, const Content& content);

    // An alert with nothing to decide.
    static void say(QWidget* window, const QString& message, const QString& informative);

Q_SIGNALS:
    // `index` is that of the pressed button in the content.
    void answered(int index);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    [[nodiscard]] QRect card() const;
    [[nodiscard]] QRect textArea() const;
    [[nodiscard]] int textWidth() const;
    void addButtons();
    void placeButtons();
    void answer(int index);
    [[nodiscard]] int indexOf(Role role) const;

    Content m_content;
    QList<PaneButton*> m_buttons;
    QPointer<QWidget> m_focusBefore;
    bool m_answered = false;
};

} // namespace tarnquill
