// What the preview tells about its engine and each of its renders.
#pragma once

#include <QString>

#include <optional>
#include <variant>

class QJsonValue;

namespace tarnquill {

struct MermaidOutcome {
    // The page's engine has started, or failed to.
    struct Engine {
        bool ready = false;

        friend bool operator==(const Engine&, const Engine&) = default;
    };
    struct Rendered {
        qint64 bytes = 0; // of the SVG

        friend bool operator==(const Rendered&, const Rendered&) = default;
    };
    struct Failed {
        QString message;
        std::optional<int> line; // of the source, from 1

        friend bool operator==(const Failed&, const Failed&) = default;
    };

    std::variant<Engine, Rendered, Failed> value;

    // Reads what the page's renderDiagram() returned.
    [[nodiscard]] static MermaidOutcome fromResult(const QJsonValue& result);

    friend bool operator==(const MermaidOutcome&, const MermaidOutcome&) = default;
};

} // namespace tarnquill
