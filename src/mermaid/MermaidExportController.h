// How the tool's copy and export commands get the diagram that the preview shows.
#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>

namespace tarnquill {

struct MermaidExportController {
    template <typename Result>
    using Fetch = std::function<void(std::function<void(std::optional<Result>)> answer)>;

    // Each is there while the preview's page is ready, and answers with nothing when there is no diagram.
    Fetch<QString> fetchSVG;
    Fetch<QByteArray> fetchPNG;
};

} // namespace tarnquill
