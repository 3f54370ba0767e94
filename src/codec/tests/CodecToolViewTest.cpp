#include "codec/CodecToolView.h"

#include "chrome/CodeEditor.h"
#include "chrome/PaneButton.h"
#include "chrome/PaneFooter.h"
#include "chrome/PaneHeader.h"
#include "chrome/SegmentedPicker.h"
#include "chrome/ToolPane.h"
#include "chrome/testing/FindWidgets.h"
#include "codec/PictureSplit.h"
#include "common/testing/WaitUntil.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTest>

namespace tarnquill {

using namespace Qt::StringLiterals;

namespace {

class CodecToolViewTest : public testing::Test {
protected:
    CodecToolViewTest() {
        m_view.resize(1050, 800);
        m_view.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&m_view));
        settle();
    }

    void settle() {
        ASSERT_TRUE(waitUntil([&] { return !m_view.isWorking(); }));
    }

    [[nodiscard]] ToolPane& pane(const QString& role) const { return paneWithRole(m_view, role); }

    [[nodiscard]] CodeEditor& editor(const QString& name) const {
        return widgetNamed<CodeEditor>(m_view, name);
    }
    [[nodiscard]] CodeEditor& input() const { return editor(u"Text to encode or decode"_s); }
    [[nodiscard]] CodeEditor& output() const { return editor(u"Result"_s); }

    [[nodiscard]] PaneButton& button(const QString& role, const QString& name) const {
        return widgetNamed<PaneButton>(pane(role).header(), name);
    }

    // The names of the header's controls that can be seen.
    [[nodiscard]] QStringList controls(const QString& role) const {
        QStringList names;
        for (auto* const button : pane(role).header().findChildren<PaneButton*>()) {
            if (button->isVisible()) {
                names.append(button->accessibleName());
            }
        }
        return names;
    }

    [[nodiscard]] QStringList metrics(const QString& role) const {
        QStringList texts;
        for (const auto& metric : pane(role).footer().metrics()) {
            texts.append(metric.text);
        }
        return texts;
    }

    [[nodiscard]] QString badge(const QString& role) const {
        return pane(role).header().badge().value_or(PaneBadge{}).text;
    }

    void type(const QString& text) {
        input().setFocus();
        QTest::keySequence(&input(), QKeySequence(QKeySequence::SelectAll));
        QTest::keyClicks(&input(), text);
        settle();
    }

    void choose(const QString& pickerName, int index) {
        for (auto* const picker : m_view.findChildren<SegmentedPicker*>()) {
            if (picker->accessibleName() == pickerName) {
                picker->setCurrentIndex(index);
            }
        }
        settle();
    }

    [[nodiscard]] QString write(const QString& name, const QByteArray& bytes) const {
        const auto path = m_folder.filePath(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return path;
    }

    [[nodiscard]] static QByteArray png(QSize size) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::red);
        QBuffer buffer;
        image.save(&buffer, "PNG");
        return buffer.data();
    }

    QTemporaryDir m_folder;
    CodecToolViewModel m_model;
    CodecToolView m_view{m_model};
};

} // namespace

TEST_F(CodecToolViewTest, ShowsTheSampleDecoded) {
    EXPECT_EQ(badge(u"Output"_s), u"GZIP → JSON"_s);
    EXPECT_EQ(metrics(u"Input"_s), (QStringList{u"1 line"_s, u"100 bytes"_s}));
    EXPECT_EQ(metrics(u"Output"_s), (QStringList{u"8 lines"_s, u"59 bytes"_s}));
    EXPECT_TRUE(output().buffer().text().starts_with(u"{\n  \"tool\""));
}

TEST_F(CodecToolViewTest, OffersOnlyTheOptionsThatMatter) {
    const QStringList always{u"Copy"_s};
    const auto shown = [&](int scheme, int direction) {
        type(u"41"_s);
        choose(u"Scheme"_s, scheme);
        choose(u"Direction"_s, direction);
        return controls(u"Output"_s);
    };
    const QStringList forBytes{u"Unpack"_s, u"Format JSON"_s, u"Copy"_s};
    EXPECT_EQ(shown(0, 0), (QStringList{u"URL-safe"_s, u"Copy"_s}));
    EXPECT_EQ(shown(1, 0), (QStringList{u"+ for space"_s, u"Copy"_s}));
    EXPECT_EQ(shown(1, 1), (QStringList{u"+ for space"_s, u"Copy"_s}));
    EXPECT_EQ(shown(2, 0), always);
    EXPECT_EQ(shown(2, 1), always);
    EXPECT_EQ(shown(3, 0), always);
    EXPECT_EQ(shown(3, 1), forBytes);
}

TEST_F(CodecToolViewTest, TogglesAnOption) {
    auto& unpack = button(u"Output"_s, u"Unpack"_s);
    EXPECT_TRUE(unpack.isChecked());
    QTest::mouseClick(&unpack, Qt::LeftButton);
    settle();
    EXPECT_FALSE(m_model.options().inflate);
    EXPECT_EQ(badge(u"Output"_s), u"BINARY"_s);
}

TEST_F(CodecToolViewTest, ShowsAFailureInPlaceOfTheOutput) {
    type(u"SGVsb"_s);
    EXPECT_TRUE(pane(u"Output"_s).showsError());
    EXPECT_EQ(metrics(u"Output"_s), QStringList{u"0 lines"_s});
    EXPECT_FALSE(button(u"Output"_s, u"Copy"_s).isEnabled());
    EXPECT_FALSE(button(u"Input"_s, u"Swap"_s).isEnabled());
    type(u"SGVsbA"_s);
    EXPECT_FALSE(pane(u"Output"_s).showsError());
    EXPECT_EQ(output().buffer().text(), u"Hell");
}

TEST_F(CodecToolViewTest, ReflowsTheDumpWithThePaneAndCopiesSixteenBytesARow) {
    type(u"/wABAgMEBQYHCAkKCwwNDg8Q"_s);
    const auto firstRow = [&] {
        return QString::fromStdU16String(output().buffer().text()).section(u'\n', 0, 0);
    };
    const auto wide = firstRow();
    EXPECT_GT(wide.size(), 50);
    m_view.resize(660, 600);
    ASSERT_TRUE(waitUntil([&] { return firstRow().size() < wide.size(); }));
    settle();
    EXPECT_LE(static_cast<std::size_t>(firstRow().size()), output().columns());
    auto& copyDump = button(u"Output"_s, u"Copy hex dump"_s);
    QTest::mouseClick(&copyDump, Qt::LeftButton);
    EXPECT_TRUE(QApplication::clipboard()->text().startsWith(
        u"00000000  ff 00 01 02 03 04 05 06  07 08 09 0a 0b 0c 0d 0e  |................|\n00000010  0f 10 "_s));
    EXPECT_TRUE(copyDump.isFlashing());
}

TEST_F(CodecToolViewTest, SwapsCopiesAndClearsAndTakesTheClearBack) {
    type(u"SGk="_s);
    QTest::mouseClick(&button(u"Input"_s, u"Swap"_s), Qt::LeftButton);
    settle();
    EXPECT_EQ(input().buffer().text(), u"Hi");
    EXPECT_EQ(output().buffer().text(), u"SGk=");
    auto& copy = button(u"Output"_s, u"Copy"_s);
    QTest::mouseClick(&copy, Qt::LeftButton);
    EXPECT_TRUE(copy.isFlashing());
    EXPECT_EQ(QApplication::clipboard()->text(), u"SGk="_s);
    QTest::mouseClick(&button(u"Input"_s, u"Clear"_s), Qt::LeftButton);
    settle();
    EXPECT_TRUE(output().buffer().isEmpty());
    EXPECT_FALSE(button(u"Input"_s, u"Clear"_s).isEnabled());
    QTest::keySequence(&input(), QKeySequence(QKeySequence::Undo));
    settle();
    EXPECT_EQ(m_model.input().text(), u"Hi");
}

TEST_F(CodecToolViewTest, TakesADroppedFileAsBytesAndShowsThePictureThatItsDataURLHolds) {
    const auto bytes = png({64, 48});
    QMimeData dragged;
    dragged.setUrls({QUrl::fromLocalFile(write(u"red.png"_s, bytes))});
    choose(u"Direction"_s, 0);
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(input().viewport(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(input().viewport(), &drop);
    settle();
    EXPECT_TRUE(drop.isAccepted());
    EXPECT_EQ(badge(u"Input"_s), u"FILE"_s);
    EXPECT_TRUE(editor(u"Bytes of the file"_s).isVisible());
    const auto base64 = QString::fromLatin1(bytes.toBase64());
    EXPECT_EQ(QString::fromStdU16String(output().buffer().text()), base64);

    m_model.setInput(TextBuffer((u"data:image/png;base64,"_s + base64).toStdU16String()));
    choose(u"Direction"_s, 1);
    EXPECT_FALSE(editor(u"Bytes of the file"_s).isVisible());
    EXPECT_EQ(badge(u"Output"_s), u"BINARY"_s);
    const auto& picture = m_view.findChild<PictureSplit*>()->picture();
    EXPECT_EQ(picture.image.size(), QSize(64, 48));
    EXPECT_EQ(picture.image.pixelColor(9, 9), QColor(Qt::red));
    EXPECT_EQ(metrics(u"Output"_s).mid(2), (QStringList{u"64 × 48"_s, u"PNG"_s}));
    type(u"SGk="_s);
    EXPECT_TRUE(m_view.findChild<PictureSplit*>()->picture().image.isNull());
}

TEST(Picture, IsScaledDownAndIsNothingForOtherBytes) {
    QImage large(5000, 100, QImage::Format_RGB32);
    large.fill(Qt::blue);
    QBuffer buffer;
    large.save(&buffer, "PNG");
    const auto picture =
        Picture::decode({buffer.data().constData(), static_cast<std::size_t>(buffer.data().size())});
    EXPECT_EQ(picture.size, QSize(5000, 100));
    EXPECT_EQ(picture.image.width(), 2048);
    EXPECT_TRUE(Picture::decode("\xFF\xFE not a picture").image.isNull());
    EXPECT_TRUE(Picture::decode("\x89PNG\r\n\x1A\n cut short").image.isNull());
}

} // namespace tarnquill
