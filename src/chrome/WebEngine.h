// The module with the web engine, which is loaded when the first page is shown: its libraries take longer to
// load than the rest of the program to start.
#pragma once

#include "common/LatestTask.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace tarnquill {

class WebEngineModule;

class WebEngine : public QObject {
    Q_OBJECT

public:
    [[nodiscard]] static WebEngine& instance();

    // An own scheme with hosts, secure and open to requests from other origins. To be added before the first
    // page is shown.
    static void addScheme(const QByteArray& scheme);

    // Loads the module in the background, unless it is there: ready() or failed() follows.
    void load();
    [[nodiscard]] WebEngineModule* module() const { return m_module; }
    // Why it cannot be loaded, as a sentence for the user; nothing unless the last try
    // failed.
    [[nodiscard]] const QString& failure() const { return m_failure; }

Q_SIGNALS:
    void ready();
    void failed();

private:
    WebEngine() = default;
    void finishLoad(bool isLoaded);
    void fail(const QString& failure);

    LatestTask m_loading;
    WebEngineModule* m_module = nullptr;
    QString m_failure;
};

} // namespace tarnquill
