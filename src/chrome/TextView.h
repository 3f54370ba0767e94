// The view of plain text that every editor of the program is made of: made for texts of any size, with lines
// of any length.
//
// Text is laid out by cells (RowLayout) and painted row by row, only where it is seen; positions, the
// clipboard, undo and search know nothing of rows. Tab and Shift+Tab belong to the text while it can be
// edited: Ctrl+Tab and Ctrl+Shift+Tab take the keyboard on to the next control and back.
#pragma once

#include "chrome/CaretBlink.h"
#include "chrome/RowText.h"
#include "chrome/SelectionGesture.h"
#include "common/ScrolledRows.h"
#include "common/TextBuffer.h"
#include "common/TextSelection.h"
#include "common/UndoHistory.h"

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <QColor>
#include <QElapsedTimer>
#include <QFont>
#include <QTimer>

#include <functional>
#include <optional>
#include <string_view>
#include <vector>

namespace tarnquill {

class TextView : public QAbstractScrollArea {
    Q_OBJECT
    Q_PROPERTY(bool readOnly READ isReadOnly WRITE setReadOnly)
    Q_PROPERTY(bool undoAvailable READ isUndoAvailable)
    Q_PROPERTY(bool redoAvailable READ isRedoAvailable)
    Q_PROPERTY(bool hasSelectedText READ hasSelectedText)

public:
    explicit TextView(QWidget* parent = nullptr);

    [[nodiscard]] const TextBuffer& buffer() const { return m_rows.text(); }

    // Shows another text and forgets what could be undone. The line at the top stays where it is if there is
    // one of its number.
    void setBuffer(const TextBuffer& buffer);
    // Shows another text from its start, as an edit that can be undone.
    void replaceAll(const TextBuffer& buffer);

    // Replaces the range as if the user had done it, and puts the caret behind the new text.
    void replace(TextRange range, std::u16string_view text);

    [[nodiscard]] TextRange selection() const { return m_selection.range(); }
    [[nodiscard]] TextSelection textSelection() const { return m_selection; }
    [[nodiscard]] bool hasSelectedText() const { return !m_selection.isEmpty(); }
    // Positions outside of the text or inside of a character are moved.
    void setSelection(TextSelection selection);
    // Selects the range and scrolls it into view.
    void reveal(TextRange range);

    [[nodiscard]] bool isReadOnly() const { return m_readOnly; }
    void setReadOnly(bool readOnly);
    [[nodiscard]] bool isUndoAvailable() const { return m_history.canUndo(); }
    [[nodiscard]] bool isRedoAvailable() const { return m_history.canRedo(); }

    // Shown while the text is empty.
    void setPlaceholderText(const QString& text);
    [[nodiscard]] QString placeholderText() const { return m_placeholder; }

    // Whether lines are broken to the view's width, as they are at first. Where they are not, only those that
    // are longer than any screen is wide still break.
    [[nodiscard]] bool wrapsLines() const { return m_wraps; }
    void setWrapsLines(bool wraps);
    // How many cells fit a row.
    [[nodiscard]] std::size_t columns() const { return m_rows.layout().columns(); }

    // Steps of a pixel of the type's size; 0 is the size that the theme has.
    [[nodiscard]] int zoom() const { return m_zoom; }
    void setZoom(int steps);

    // The line at a height of the viewport, with a fraction: 2.5 is the middle of the third line. And back,
    // also for what is out of sight; or scrolls so that the line is at that height, as far as the ends of the
    // text allow.
    [[nodiscard]] double lineAt(double height) const;
    [[nodiscard]] double heightOf(double line) const;
    void scrollToLine(double line, double height);

    // Whether all rows are counted. Until then the scroll bar stands where it will be, more or less.
    [[nodiscard]] bool isLaidOut() const { return m_rows.layout().isSettled(); }

    // In the viewport.
    [[nodiscard]] std::size_t positionAt(QPointF point) const;
    [[nodiscard]] QRectF caretRect(std::size_t position) const;

    [[nodiscard]] QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

    // By these names the Edit menu finds them.
    Q_SLOT void undo();
    Q_SLOT void redo();
    Q_SLOT void cut();
    Q_SLOT void copy();
    Q_SLOT void paste();
    Q_SLOT void deleteSelection();
    Q_SLOT void selectAll();

    // What pasting inserts in place of the text that the clipboard holds.
    void setPasteFilter(std::function<QString(const QString& text)> filter);

Q_SIGNALS:
    // The user has changed the text, undo and redo included. Not sent for setBuffer() and replaceAll().
    void textEdited();
    // Where the selection is has changed, or the text around it.
    void selectionChanged();
    // Other text has come into view, by whatever it was.
    void scrolled();
    void focusChanged(bool hasFocus);
    void zoomChanged(int steps);
    void columnsChanged(std::size_t columns);

protected:
    // Paint under or around a stretch of a row; invalid colours paint nothing.
    struct Mark {
        TextRange range; // of the text
        QColor fill;
        QColor border;
        QColor wave; // under the text
    };
    struct RowLook {
        QColor background;        // across the view
        RowText::Formats formats; // from the row's start on
        std::vector<Mark> marks;
    };

    // What subclasses add to the rows.
    [[nodiscard]] virtual RowLook rowLook(const RowLayout::Row& row);
    [[nodiscard]] virtual int gutterWidth() const { return 0; }
    virtual void paintGutter(QPainter& painter, const RowLayout::Row& row, const QRect& rect);
    // The text has changed already.
    virtual void bufferChanged(const TextChange& /*change*/) {}
    // Keys whose meaning depends on the kind of text.
    virtual void insertLineBreak();
    virtual void insertTab();
    virtual void removeTab() {}

    // The user's edit, whose caret is behind the new text if no selection is given. Not for a text that is
    // read-only.
    void edit(TextRange range, std::u16string_view text, UndoHistory::Edit kind = UndoHistory::Edit::other);
    void edit(TextRange range, std::u16string_view text, TextSelection selection, UndoHistory::Edit kind);
    [[nodiscard]] QFont zoomed(const QFont& themeFont) const;
    // To be called when gutterWidth() may have changed.
    void updateColumns();
    // Shows where dropped text would go.
    void setDropPosition(std::optional<std::size_t> position);
    // Whether what is dragged is this view's own selection, and what becomes of it when it is dropped here.
    [[nodiscard]] bool isDragging() const { return m_dragging; }
    void dropOwnDrag(std::size_t position, bool moves);

    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    struct Composition {
        QString text;
        RowText::Formats formats;
        int caret = 0;
        bool caretShown = true;
    };

    // Text and selection
    void present(const TextBuffer& buffer, const TextChange& change, TextSelection selection);
    void tellOfChange(const TextBuffer& before, const TextChange& change);
    void goTo(const std::optional<UndoHistory::State>& state);
    [[nodiscard]] UndoHistory::State state() const { return {.text = buffer(), .selection = m_selection}; }
    [[nodiscard]] TextSelection valid(TextSelection selection) const;
    void select(TextSelection selection);
    void moveCaret(std::size_t position, bool selecting);
    void moveByRows(std::ptrdiff_t rows, bool selecting);
    [[nodiscard]] std::size_t rowStart() const;
    [[nodiscard]] std::size_t rowEnd() const;
    void deleteTo(std::size_t position, UndoHistory::Edit kind);
    void type(const QString& text);
    // The text around the caret that input methods are told of.
    [[nodiscard]] TextRange surroundings() const;
    [[nodiscard]] bool handleMove(const QKeyEvent& event);
    [[nodiscard]] bool handleEditing(const QKeyEvent& event);
    [[nodiscard]] bool handleCommand(const QKeyEvent& event);

    // Mouse
    void startDrag();
    void offerSelection();
    [[nodiscard]] bool isSelectedAt(QPointF point) const;

    // Layout and scrolling
    void updateFont();
    void updateScrollBars();
    void scrollToCaret();
    void settleRows();
    [[nodiscard]] int textLeft() const;
    [[nodiscard]] RowText rowText(const RowLayout::Row& row, const RowText::Formats& formats) const;
    [[nodiscard]] double rowLeft(const RowText& text) const;
    [[nodiscard]] std::size_t positionInRow(const RowLayout::Row& row, double x) const;
    [[nodiscard]] double caretX(const RowLayout::Row& row, const RowText& text, std::size_t position) const;

    // Painting
    void paintRow(QPainter& painter, const ScrolledRows::Placed& placed);
    void paintMark(QPainter& painter, const QRectF& rect, const Mark& mark) const;
    [[nodiscard]] QRect caretIn(const QRect& row, double x) const;
    void updateCaret();

    // Scrolled rows count what they are asked for, which changes nothing that can be seen.
    mutable ScrolledRows m_rows;
    TextSelection m_selection;
    UndoHistory m_history;
    Composition m_composition;
    CaretBlink m_blink;
    QTimer m_settle;
    QString m_placeholder;
    QFont m_font;
    double m_cellWidth = 1;
    int m_zoom = 0;
    bool m_readOnly = false;
    std::function<QString(const QString& text)> m_pasteFilter;
    bool m_wraps = true;
    bool m_updatingScrollBars = false;
    std::optional<double> m_wantedX; // where moves by rows keep to

    SelectionGesture m_gesture;
    QPointF m_pressed;
    QPointF m_pointer;
    bool m_selecting = false;
    bool m_mayDrag = false;
    bool m_dragging = false;
    int m_wheel = 0;
    QBasicTimer m_autoScroll;
    QElapsedTimer m_doubleClicked;
    QPointF m_doubleClickPoint;
    std::optional<std::size_t> m_dropPosition;
};

} // namespace tarnquill
