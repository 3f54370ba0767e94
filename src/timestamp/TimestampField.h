// The tool's input: one line of large text. A list that is pasted into it or dropped on it is handed on
// instead.
#pragma once

#include <QPlainTextEdit>

namespace tarnquill {

class TimestampField : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit TimestampField(QWidget* parent = nullptr);

    [[nodiscard]] QString text() const { return toPlainText(); }
    // Can be undone like an edit.
    void setText(const QString& text);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    void listPasted(const QString& text);

protected:
    [[nodiscard]] bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void applyTheme();
};

} // namespace tarnquill
