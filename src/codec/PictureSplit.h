// A view of bytes with the picture that they are beside it, or above it where there is little room.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QWidget>

#include <string_view>

namespace tarnquill {

struct Picture {
    QImage image; // small enough to keep
    QSize size;   // that the picture has, in its own pixels
    QByteArray format;

    // Nothing (a null image) when the bytes are no picture of a common kind.
    [[nodiscard]] static Picture decode(std::string_view bytes);
};

class PictureSplit : public QWidget {
    Q_OBJECT

public:
    // Takes the view over.
    explicit PictureSplit(QWidget* view, QWidget* parent = nullptr);

    // A null image shows the view alone.
    void setPicture(const Picture& picture);
    [[nodiscard]] const Picture& picture() const { return m_picture; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] QRect pictureArea() const;
    void place();

    QWidget* m_view;
    Picture m_picture;
};

} // namespace tarnquill
