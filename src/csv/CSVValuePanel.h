// The whole text of the current cell, below the grid.
#pragma once

#include "common/LatestTask.h"
#include "csv/CSVParser.h"

#include <QWidget>

#include <memory>

namespace tarnquill {

class CodeEditor;
class PaneButton;
class TextLabel;

class CSVValuePanel : public QWidget {
    Q_OBJECT

public:
    static constexpr int kMinimumHeight = 88;

    explicit CSVValuePanel(QWidget* parent = nullptr);

    // The cell's text under a title that says where it stands.
    void showCell(const QString& title, std::shared_ptr<const CSVParser::Document> document,
                  CSVParser::RowID row, std::size_t column);

    // Pending while a text is made ready.
    [[nodiscard]] const LatestTask& task() const { return m_task; }

Q_SIGNALS:
    void closeRequested();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    TextLabel* m_title;
    PaneButton* m_copy;
    CodeEditor* m_text;
    LatestTask m_task;
};

} // namespace tarnquill
