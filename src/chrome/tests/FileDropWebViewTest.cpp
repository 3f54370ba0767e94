#include "chrome/FileDropWebView.h"

#include "common/testing/WaitUntil.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QSignalSpy>

namespace tarnquill {
namespace {

using namespace Qt::StringLiterals;

class FileDropWebViewTest : public testing::Test {
protected:
    FileDropWebViewTest() {
        view.setFileDrop(FileDrop{[this](const QList<QUrl>& urls) {
                                      opened = urls;
                                      return true;
                                  },
                                  [this](bool isTarget) { targeted.append(isTarget); }});
    }

    bool enter(const QMimeData& data) {
        QDragEnterEvent event(QPoint(10, 10), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&view, &event);
        return event.isAccepted() && event.dropAction() == Qt::CopyAction;
    }

    bool drop(const QMimeData& data) {
        QDropEvent event(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&view, &event);
        return event.isAccepted();
    }

    FileDropWebView view;
    QList<QUrl> opened;
    QList<bool> targeted;
};

TEST_F(FileDropWebViewTest, TakesFilesAndOnlyTheFilesOfADrag) {
    QMimeData data;
    const QUrl file = QUrl::fromLocalFile(u"/tmp/notes.md"_s);
    data.setUrls({QUrl(u"https://example.org/"_s), file});
    EXPECT_TRUE(enter(data));
    EXPECT_TRUE(drop(data));
    EXPECT_EQ(opened, QList<QUrl>{file});
    EXPECT_EQ(targeted, (QList<bool>{true, false}));
}

TEST_F(FileDropWebViewTest, LetsTextAndLinksPass) {
    QMimeData text;
    text.setText(u"plain"_s);
    QMimeData link;
    link.setUrls({QUrl(u"https://example.org/"_s)});
    EXPECT_FALSE(enter(text));
    EXPECT_FALSE(enter(link));
    EXPECT_TRUE(targeted.isEmpty());
}

TEST_F(FileDropWebViewTest, RefusesADropWithoutAnythingToOpenItWith) {
    view.setFileDrop(std::nullopt);
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(u"/tmp/notes.md"_s)});
    EXPECT_TRUE(enter(data));
    EXPECT_FALSE(drop(data));
}

TEST_F(FileDropWebViewTest, HearsOfADragOverThePageItself) {
    QSignalSpy loaded(&view, &QWebEngineView::loadFinished);
    view.resize(200, 200);
    view.show();
    view.setHtml(u"<textarea style='position: fixed; inset: 0'></textarea>"_s);
    ASSERT_TRUE(waitUntil([&] { return loaded.count() > 0; }));
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(u"/tmp/notes.md"_s)});
    QWidget* page = view.childAt(100, 100);
    ASSERT_NE(page, nullptr);
    QDragEnterEvent event(QPoint(100, 100), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(page, &event);
    EXPECT_TRUE(event.isAccepted());
    EXPECT_EQ(targeted, QList<bool>{true});
}

} // namespace
} // namespace tarnquill
