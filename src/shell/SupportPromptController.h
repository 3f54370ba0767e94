// Decides when a user who keeps using the program is asked to support it: after fourteen days of use, at most
// once a month, and never again once they said so.
#pragma once

class QDateTime;

namespace tarnquill {

class Settings;

class SupportPromptController {
public:
    // The settings must outlive the controller.
    explicit SupportPromptController(Settings& settings) : m_settings(settings) {}

    // Remembers the local calendar day of `now` as one on which the program was used.
    void recordLaunch(const QDateTime& now);

    [[nodiscard]] bool shouldShow(const QDateTime& now) const;

    // To be called before the question is shown, so that a crash counts as an answer.
    void recordShown(const QDateTime& now);
    void optOut();

private:
    Settings& m_settings;
};

} // namespace tarnquill
