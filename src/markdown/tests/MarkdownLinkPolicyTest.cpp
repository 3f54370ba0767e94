#include "markdown/MarkdownLinkPolicy.h"

#include <gtest/gtest.h>

namespace tarnquill {

using namespace Qt::StringLiterals;

TEST(MarkdownLinkPolicy, OpensWebLinksInTheBrowserAndAllowsNothingButThePageItself) {
    using MarkdownLinkPolicy::Cause;
    using MarkdownLinkPolicy::Decision;
    const QUrl page(u"tarnquill-doc://document/home/"_s);
    const auto decide = [&](const char* url, Cause cause, bool isMainFrame = true) {
        return MarkdownLinkPolicy::decide(QUrl(QString::fromUtf8(url)), cause, isMainFrame, page);
    };
    EXPECT_EQ(decide("HTTPS://example.org/", Cause::link), Decision::openInBrowser);
    EXPECT_EQ(decide("mailto:a@example.org", Cause::link), Decision::cancel);
    EXPECT_EQ(decide("tarnquill-doc://document/home/", Cause::link), Decision::cancel);
    EXPECT_EQ(decide("tarnquill-doc://document/home/", Cause::other), Decision::allow);
    EXPECT_EQ(decide("tarnquill-doc://document/home/", Cause::other, false), Decision::cancel);
    EXPECT_EQ(decide("tarnquill-doc://document/etc/", Cause::other), Decision::cancel);
    EXPECT_EQ(decide("https://example.org/", Cause::other), Decision::cancel);
    EXPECT_EQ(decide("tarnquill-doc://document/home/", Cause::reload), Decision::cancel);
    EXPECT_EQ(decide("", Cause::other), Decision::cancel);
}

} // namespace tarnquill
