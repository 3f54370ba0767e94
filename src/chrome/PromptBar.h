// Asks something at the top of a pane that can wait: what is below stays usable.
#pragma once

#include <QWidget>

class QLabel;

namespace tarnquill {

class PromptBar : public QWidget {
    Q_OBJECT

public:
    // Hidden at first. A bar that is answered hides itself.
    PromptBar(const QString& acceptTitle, const QString& declineTitle, QWidget* parent = nullptr);

    void ask(const QString& question);

Q_SIGNALS:
    void accepted();
    void declined();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QLabel* m_question;
};

} // namespace tarnquill
