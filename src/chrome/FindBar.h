// Slides in at the top of a text to find something in it.
#pragma once

#include <QWidget>

class QVariantAnimation;

namespace tarnquill {

class SearchBar;

class FindBar : public QWidget {
    Q_OBJECT

public:
    explicit FindBar(QWidget* parent = nullptr);

    [[nodiscard]] SearchBar& search() const { return *m_search; }

    // Opening also takes the keyboard; a bar that is open already only does that.
    void open();
    // Also by Done and by Escape.
    void close();
    [[nodiscard]] bool isOpen() const { return m_open; }

Q_SIGNALS:
    void openChanged(bool open);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void slide();

    SearchBar* m_search;
    QVariantAnimation* m_slide;
    bool m_open = false;
};

} // namespace tarnquill
