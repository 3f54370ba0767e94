// A page for tests: it keeps what it is asked, and answers when and what the test wants.
#pragma once

#include "mermaid/MermaidPage.h"

#include <deque>

namespace tarnquill {

class FakeMermaidPage : public MermaidPage {
public:
    struct Call {
        QString body;
        QJsonObject arguments;
        Answer answer;
    };

    void call(const QString& body, const QJsonObject& arguments, const Answer& answer) override {
        calls.push_back({body, arguments, answer});
    }
    void run(const QString& script) override { scripts.append(script); }
    void restart() override { ++restarts; }

    // Answers the oldest call, which has to be that one, and returns its arguments.
    QJsonObject answer(const QString& function, const std::expected<QJsonValue, QString>& result) {
        if (calls.empty() || !calls.front().body.contains(function)) {
            return {{QStringLiteral("missing"), function}};
        }
        const auto call = calls.front();
        calls.pop_front();
        call.answer(result);
        return call.arguments;
    }

    std::deque<Call> calls;
    QStringList scripts;
    int restarts = 0;
};

} // namespace tarnquill
