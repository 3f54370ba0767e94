// A search field over a list of choices at the top of the window: letters narrow the list, arrows walk in it,
// Return or a click chooses. It closes as soon as the user turns to anything else.
#pragma once

#include "chrome/Popover.h"
#include "shell/ChoiceModel.h"

class QLineEdit;

namespace tarnquill {

class TextLabel;

class ChoicePanel : public Popover {
    Q_OBJECT

public:
    // `name` is what it is called by assistive technology; `prompt` stands in the empty field.
    ChoicePanel(const QString& name, const QString& prompt, QWidget& window);

    // Opens with an empty field. The sentence stands above the choices, or in place of them.
    void offer(const QList<Choice>& choices, const QString& sentence = {});

    // Whether the widget is in any such panel.
    [[nodiscard]] static bool encloses(const QWidget& widget);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    class List;

    ChoicePanel(const QString& name, const QString& prompt, QWidget& window, QWidget* content);

    [[nodiscard]] bool handleKey(int key);
    void filter(const QString& query);
    void tellCurrent();
    void choose(const QModelIndex& index);

    QWidget& m_window;
    ChoiceModel m_model;
    QWidget* m_content;
    QLineEdit* m_field;
    TextLabel* m_sentence;
    List* m_list;
    QString m_offered; // the sentence while nothing is typed
};

} // namespace tarnquill
