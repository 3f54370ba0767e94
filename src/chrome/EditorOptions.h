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

Q_SIGNALS:
    void changed();

private:
    EditorOptions() = default;

    bool m_showsLineNumbers = true;
};

} // namespace tarnquill
