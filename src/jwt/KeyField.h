// The field that a key is pasted, typed or dropped into: an editor in a frame, with what it holds hidden on
// request.
#pragma once

#include "common/TextBuffer.h"

#include <QWidget>

class QStackedWidget;

namespace tarnquill {

class CodeEditor;
class PaneButton;

class KeyField : public QWidget {
    Q_OBJECT

public:
    // The room around the border that the focus takes.
    static constexpr int kHalo = 2;

    explicit KeyField(QWidget* parent = nullptr);

    [[nodiscard]] CodeEditor& editor() const { return *m_editor; }
    // Shows another key, which can be undone.
    void replaceKey(const TextBuffer& key);

    // Shows a dot for every character; the key cannot be changed meanwhile.
    void setHidden(bool isHidden);

    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    void keyEdited();

private:
    class Frame;

    void showDots();

    CodeEditor* m_editor;
    CodeEditor* m_dots;
    QStackedWidget* m_pages;
    Frame* m_frame;
};

} // namespace tarnquill
