// What became of the check of a signature: a sentence and what it is about, on a fill in the colour of its
// meaning.
#pragma once

#include "jwt/JWTToolViewModel.h"

#include <QWidget>

namespace tarnquill {

class OutcomeBox : public QWidget {
    Q_OBJECT

public:
    explicit OutcomeBox(QWidget* parent = nullptr);

    // Without a check the box keeps its size and says nothing.
    void setCheck(const std::optional<JWTToolViewModel::Check>& check);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    enum class Tone : std::uint8_t { neutral, ok, bad };

    [[nodiscard]] int textWidth() const;

    Tone m_tone = Tone::neutral;
    QString m_sentence;
    QString m_details;
};

} // namespace tarnquill
