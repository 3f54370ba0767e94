// The diagram engine's page in a web view.
#pragma once

#include "mermaid/MermaidPage.h"

namespace tarnquill {

class WebPageView;

class MermaidWebPage : public MermaidPage {
    Q_OBJECT

public:
    // Makes the view with the page in it; `parent` takes the view over. It may reach nothing but its own
    // scripts.
    explicit MermaidWebPage(QWidget* parent);

    [[nodiscard]] WebPageView& view() const { return *m_view; }

    void call(const QString& body, const QJsonObject& arguments, const Answer& answer) override;
    void run(const QString& script) override;
    void restart() override;

private:
    WebPageView* m_view;
};

} // namespace tarnquill
