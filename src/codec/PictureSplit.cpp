#include "codec/PictureSplit.h"

#include "chrome/Theme.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>

#include <algorithm>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLargestSide = 2048; // of what is kept: no pane shows more
constexpr int kMargin = 12;
constexpr int kRoomBeside = 720; // narrower panes show the picture above
constexpr double kShareBeside = 0.45;
constexpr double kShareAbove = 0.4;

// Formats that cannot draw from other files, unlike vector graphics.
bool isBitmapFormat(const QByteArray& format) {
    static const QByteArrayList kFormats{"png", "jpeg", "gif", "bmp", "ico", "webp"};
    return kFormats.contains(format);
}

} // namespace

Picture Picture::decode(std::string_view bytes) {
    auto data = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&data);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    Picture picture{.image = {}, .size = {}, .format = reader.format()};
    if (!isBitmapFormat(picture.format)) {
        return picture;
    }
    picture.size = reader.size();
    if (picture.size.width() > kLargestSide || picture.size.height() > kLargestSide) {
        reader.setScaledSize(picture.size.scaled(kLargestSide, kLargestSide, Qt::KeepAspectRatio));
    }
    picture.image = reader.read();
    if (reader.transformation() & QImageIOHandler::TransformationRotate90) {
        picture.size.transpose();
    }
    return picture;
}

PictureSplit::PictureSplit(QWidget* view, QWidget* parent) : QWidget(parent), m_view(view) {
    m_view->setParent(this);
}

void PictureSplit::setPicture(const Picture& picture) {
    m_picture = picture;
    setAccessibleDescription(
        picture.image.isNull()
            ? QString()
            : u"With a picture of %1 × %2 pixels"_s.arg(picture.size.width()).arg(picture.size.height()));
    place();
    update();
}

QRect PictureSplit::pictureArea() const {
    if (m_picture.image.isNull()) {
        return {};
    }
    if (width() >= kRoomBeside) {
        const auto share =
            std::min(static_cast<int>(width() * kShareBeside), m_picture.size.width() + 2 * kMargin);
        return {width() - share, 0, share, height()};
    }
    const auto share =
        std::min(static_cast<int>(height() * kShareAbove), m_picture.size.height() + 2 * kMargin);
    return {0, 0, width(), share};
}

void PictureSplit::place() {
    const auto area = pictureArea();
    if (area.isEmpty()) {
        m_view->setGeometry(rect());
    } else if (area.left() > 0) {
        m_view->setGeometry(0, 0, area.left() - 1, height());
    } else {
        const auto top = area.bottom() + 2;
        m_view->setGeometry(0, top, width(), height() - top);
    }
}

void PictureSplit::resizeEvent(QResizeEvent* /*event*/) {
    place();
}

void PictureSplit::paintEvent(QPaintEvent* /*event*/) {
    const auto area = pictureArea();
    if (area.isEmpty()) {
        return;
    }
    QPainter painter(this);
    painter.fillRect(rect(), themeColor(ColorRole::hairline)); // shows between the two
    painter.fillRect(area, themeColor(ColorRole::raised));
    const auto room = area.adjusted(kMargin, kMargin, -kMargin, -kMargin);
    auto size = m_picture.size;
    if (size.width() > room.width() || size.height() > room.height()) {
        size.scale(room.size(), Qt::KeepAspectRatio);
    }
    QRect target({}, size);
    target.moveCenter(room.center());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(target, m_picture.image);
}

} // namespace tarnquill
