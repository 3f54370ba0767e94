// Keeps the folders that the user lets the preview read images from, and asks for one more when an image lies
// outside of them.
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

namespace tarnquill {

class MarkdownFolderAccess : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    // The folder of the opened document, empty while there is none. A new document asks anew.
    [[nodiscard]] const QString& documentFolder() const { return m_documentFolder; }
    void setDocumentFolder(const QString& folder);

    [[nodiscard]] const QStringList& granted() const { return m_granted; }
    // Whether the file, links followed, lies inside a granted folder. A file that is not there lies nowhere.
    [[nodiscard]] bool allows(const QString& file) const;

    // An image was refused: the user is to be asked, unless that was declined for this document.
    void refuse(const QString& file);
    [[nodiscard]] bool needsAccess() const { return m_needsAccess; }
    // The folder to ask for: one that holds the document and every refused image.
    [[nodiscard]] const QString& suggestedFolder() const { return m_suggestedFolder; }

    void grant(const QString& folder);
    void decline();

    // "To show the images in “pictures”, allow Tarnquill to read the folder they are in."
    [[nodiscard]] QString request() const;
    static QString panelMessage();

Q_SIGNALS:
    void needsAccessChanged();
    // Refused images may load now.
    void reloadImages();

private:
    void setNeedsAccess(bool needs);

    QString m_documentFolder;
    QString m_suggestedFolder;
    QStringList m_granted;
    bool m_needsAccess = false;
    bool m_declined = false;
};

} // namespace tarnquill
