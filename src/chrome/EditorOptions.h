// What the user has chosen for all editors of the program.
#pragma once

#include <QObject>

namespace tarnquill {

class EditorOptions : public QObject {
    Q_OBJECT

public:
    static EditorOptions& instance();

    // Whether editors that number their lines show the numbers; they do at first.
    [[nodiscard]] bool showsLineNumbers() const { return m_showsLineNumbers; }
    void setLineNumbersVisible(bool visible);

    // Whether lines break at the view's edge; they do at first.
    [[nodiscard]] bool wrapsLines() const { return m_wrapsLines; }
    void setWrapsLines(bool wraps);

Q_SIGNALS:
    void changed();

private:
    EditorOptions() = default;

    bool m_showsLineNumbers = true;
    bool m_wrapsLines = true;
};

} // namespace tarnquill
