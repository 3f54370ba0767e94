#include "shell/AcknowledgementsWindow.h"

#include "chrome/MessageView.h"
#include "chrome/TextView.h"
#include "common/TextFile.h"

#include <QVBoxLayout>

namespace tarnquill {

using namespace Qt::StringLiterals;

AcknowledgementsWindow::AcknowledgementsWindow(QWidget* mainWindow, const QString& noticesFile)
    : SecondaryWindow(tr("Acknowledgements"), mainWindow) {
    setObjectName(u"acknowledgements"_s);
    resize(720, 560);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    if (const auto notices = readTextFile(noticesFile.toStdString())) {
        auto* const text = new TextView;
        text->setReadOnly(true);
        text->setWrapsLines(true);
        text->setAccessibleName(windowTitle());
        text->setBuffer(TextBuffer(notices->text));
        layout->addWidget(text);
    } else {
        auto* const message = new MessageView(MessageView::Kind::placeholder);
        message->setMessage(tr("Acknowledgements are missing from this build"),
                            tr("THIRD-PARTY-NOTICES.md was not found inside the app bundle."),
                            u"doc.text.magnifyingglass"_s);
        layout->addWidget(message);
    }
}

} // namespace tarnquill
