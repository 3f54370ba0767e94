// Says in the middle of a pane why there is nothing else to see: an error, or that something is to be chosen
// first. What a low pane cuts off of the text is its tool tip.
#pragma once

#include <QWidget>

class QHBoxLayout;

namespace tarnquill {

class MessageView : public QWidget {
    Q_OBJECT

public:
    enum class Kind { error, placeholder };

    explicit MessageView(Kind kind, QWidget* parent = nullptr);

    // The symbol of an error is its own; a placeholder names one.
    void setMessage(const QString& title, const QString& text, const QString& symbol = {});

    // The text leads somewhere: a click on it, or Enter, emits activated(). `help` says where.
    void setLink(bool isLink, const QString& help = {});

    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    void activated();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    class Text;

    [[nodiscard]] int iconExtent() const;
    [[nodiscard]] QRect block() const;
    void placeText();

    Kind m_kind;
    QString m_title;
    QString m_symbol;
    Text* m_text;
};

} // namespace tarnquill
