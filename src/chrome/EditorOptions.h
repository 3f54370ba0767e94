// What the user has chosen for all editors of the program.
#pragma once

#include <QFont>
#include <QObject>
#include <QString>

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

    // The typeface, which gives every character the same width; empty for the program's own.
    [[nodiscard]] const QString& fontFamily() const { return m_fontFamily; }
    void setFontFamily(const QString& family);

    // In logical pixels, before an editor's own zoom.
    static constexpr int kUsualFontSize = 13;
    static constexpr int kSmallestFontSize = 9;
    static constexpr int kLargestFontSize = 32;
    [[nodiscard]] int fontSize() const { return m_fontSize; }
    // The nearest size that there is.
    void setFontSize(int pixels);

    // The font as the user wants it: a font of the theme for one of an editor's texts, in their typeface and
    // as much larger as their size is.
    [[nodiscard]] QFont applied(QFont font) const;

Q_SIGNALS:
    void changed();

private:
    EditorOptions() = default;

    bool m_showsLineNumbers = true;
    bool m_wrapsLines = true;
    QString m_fontFamily;
    int m_fontSize = kUsualFontSize;
};

} // namespace tarnquill
