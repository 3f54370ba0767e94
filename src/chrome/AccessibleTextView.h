// Reads a text view aloud and edits it for assistive technologies. Offsets count UTF-16 units.
#pragma once

#include <QAccessibleWidget>

namespace tarnquill {

class TextView;

class AccessibleTextView : public QAccessibleWidget,
                           public QAccessibleTextInterface,
                           public QAccessibleEditableTextInterface {
public:
    explicit AccessibleTextView(TextView* view);

    // Has Qt make one of these for every text view from now on.
    static void install();

    void* interface_cast(QAccessible::InterfaceType type) override;
    [[nodiscard]] QAccessible::State state() const override;
    [[nodiscard]] QString text(QAccessible::Text type) const override;

    void selection(int selectionIndex, int* startOffset, int* endOffset) const override;
    [[nodiscard]] int selectionCount() const override;
    void addSelection(int startOffset, int endOffset) override;
    void removeSelection(int selectionIndex) override;
    void setSelection(int selectionIndex, int startOffset, int endOffset) override;
    [[nodiscard]] int cursorPosition() const override;
    void setCursorPosition(int position) override;
    [[nodiscard]] QString text(int startOffset, int endOffset) const override;
    [[nodiscard]] QString textBeforeOffset(int offset, QAccessible::TextBoundaryType boundaryType,
                                           int* startOffset, int* endOffset) const override;
    [[nodiscard]] QString textAfterOffset(int offset, QAccessible::TextBoundaryType boundaryType,
                                          int* startOffset, int* endOffset) const override;
    [[nodiscard]] QString textAtOffset(int offset, QAccessible::TextBoundaryType boundaryType,
                                       int* startOffset, int* endOffset) const override;
    [[nodiscard]] int characterCount() const override;
    [[nodiscard]] QRect characterRect(int offset) const override;
    [[nodiscard]] int offsetAtPoint(const QPoint& point) const override;
    void scrollToSubstring(int startIndex, int endIndex) override;
    [[nodiscard]] QString attributes(int offset, int* startOffset, int* endOffset) const override;

    void deleteText(int startOffset, int endOffset) override;
    void insertText(int offset, const QString& text) override;
    void replaceText(int startOffset, int endOffset, const QString& text) override;

private:
    [[nodiscard]] TextView& view() const;
    // A position of the text, whatever the offset.
    [[nodiscard]] std::size_t position(int offset) const;
    [[nodiscard]] QString textOf(std::size_t start, std::size_t end) const;
};

} // namespace tarnquill
