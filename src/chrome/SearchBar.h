// A search field with what belongs to it in one frame: the scope, the count of matches, clearing, and going
// to the next and previous match.
#pragma once

#include <QStringList>
#include <QWidget>

class QLineEdit;
class QMenu;

namespace tarnquill {

class PaneButton;
class TextLabel;

class SearchBar : public QWidget {
    Q_OBJECT

public:
    enum class Parts { fieldOnly, withNavigation };

    explicit SearchBar(Parts parts, QWidget* parent = nullptr);

    [[nodiscard]] QLineEdit& field() const { return *m_field; }
    [[nodiscard]] QString text() const;
    void setText(const QString& text);
    // Takes the keyboard and selects the text.
    void focusField();

    // Where to search, as a menu at the leading edge.
    void setScopes(const QStringList& titles, const QString& help);
    [[nodiscard]] int scope() const { return m_scope; }
    void setScope(int index);

    // "3 of 12 matches", or nothing; next and previous work only when there is somewhere to go.
    void setCount(const QString& text, bool canNavigate);

    // The bar is `preferred` wide where there is room and shrinks to `minimum`.
    void setWidths(int minimum, int preferred);

    // Escape empties the field first; otherwise it only emits cancelled().
    void setEscapeClears(bool clears) { m_escapeClears = clears; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    void textChanged(const QString& text);
    void scopeChanged(int index);
    void nextRequested();
    void previousRequested();
    void cancelled();

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    class Line;

    [[nodiscard]] bool handleKey(int key, Qt::KeyboardModifiers modifiers);

    PaneButton* m_scopeButton;
    Line* m_scopeLine;
    QLineEdit* m_field;
    TextLabel* m_count;
    PaneButton* m_clear;
    PaneButton* m_previous = nullptr;
    PaneButton* m_next = nullptr;
    QMenu* m_scopes;
    int m_scope = 0;
    int m_minimumWidth = 160;
    int m_preferredWidth = 400;
    bool m_escapeClears = true;
};

} // namespace tarnquill
