// Arranges controls in rows that wrap: pinned ones lead their row, the others flow after them, and the rules
// between groups of controls vanish where a group break falls on a row break.
#pragma once

#include <QLayout>

#include <vector>

namespace tarnquill {

class WrapLayout : public QLayout {
    Q_OBJECT

public:
    enum class Place {
        flow,
        pinned,    // in the leading block of its row
        groupRule, // the thin separator between two groups of controls
    };

    // Positions in the layout of what one row holds, in order, and the size of its two blocks.
    struct Row {
        std::vector<int> pinned;
        std::vector<int> flow;
        int pinnedWidth = 0;
        int flowWidth = 0;
        int height = 0;
        std::vector<int> hidden; // group rules that the row does not show

        [[nodiscard]] bool isEmpty() const { return pinned.empty() && flow.empty(); }
    };

    struct Settings {
        int horizontalSpacing = 8;                       // between neighbours in a block
        int verticalSpacing = 8;                         // between rows
        int groupSpacing = 16;                           // between the pinned block and the flow block
        Qt::AlignmentFlag alignment = Qt::AlignTrailing; // of the flow block; or Qt::AlignLeading
    };

    WrapLayout(const Settings& settings, QWidget* parent = nullptr);
    explicit WrapLayout(QWidget* parent = nullptr);
    ~WrapLayout() override;

    // A group rule must have no minimum size, so that it can be shrunk to nothing.
    void addWidget(QWidget* widget, Place place);
    void insertWidget(int index, QWidget* widget, Place place);

    // The rows for a width. Items that are hidden by their owner take no part.
    [[nodiscard]] std::vector<Row> rows(int maximumWidth) const;

    void addItem(QLayoutItem* item) override;
    [[nodiscard]] int count() const override;
    [[nodiscard]] QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    [[nodiscard]] Qt::Orientations expandingDirections() const override { return {}; }
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;

private:
    struct Item {
        QLayoutItem* item;
        Place place;
    };

    [[nodiscard]] const Item& at(int index) const { return m_items[static_cast<size_t>(index)]; }
    [[nodiscard]] QSize sizeOf(int index) const { return at(index).item->sizeHint(); }
    void add(Row& row, int index) const;
    [[nodiscard]] int width(const Row& row) const;
    [[nodiscard]] int height(const std::vector<Row>& rows) const;
    void place(const Row& row, const QRect& bounds, int y);
    void placeBlock(const std::vector<int>& block, int x, const Row& row, const QRect& bounds, int y);

    Settings m_settings;
    std::vector<Item> m_items;
};

} // namespace tarnquill
