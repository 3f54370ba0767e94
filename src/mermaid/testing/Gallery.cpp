// mermaid_gallery FOLDER: draws every template in the real page, in light and in dark, and saves the pictures
// as FOLDER/TITLE-APPEARANCE.png, and the exported files of each beside them.
#include "chrome/Theme.h"
#include "common/testing/WaitUntil.h"
#include "mermaid/MermaidTemplates.h"
#include "mermaid/MermaidToolView.h"

#include <QApplication>
#include <QDir>

#include <array>
#include <cstdio>
#include <utility>

using namespace tarnquill;
using namespace Qt::StringLiterals;

namespace {

constexpr std::array kAppearances{std::pair{"light", Appearance::light}, std::pair{"dark", Appearance::dark}};

bool write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

template <typename Result>
Result fetched(const MermaidExportController::Fetch<Result>& fetch) {
    std::optional<Result> result;
    bool isDone = false;
    fetch([&](const std::optional<Result>& answer) {
        result = answer;
        isDone = true;
    });
    waitUntil([&] { return isDone; }, 30'000);
    return result.value_or(Result());
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fputs("Usage: mermaid_gallery FOLDER\n", stderr);
        return 2;
    }
    int nameOnly = 1;
    QApplication application(nameOnly, argv);
    Theme::instance().install(application);
    const QDir folder(QFile::decodeName(argv[1]));
    MermaidToolViewModel model;
    MermaidToolView view(model);
    view.resize(1050, 800);
    view.show();
    for (const auto& [appearanceName, appearance] : kAppearances) {
        Theme::instance().setAppearance(appearance);
        for (std::size_t index = 0; index < MermaidTemplates::all().size(); ++index) {
            const auto title = MermaidTemplates::all()[index].title;
            const auto path = folder.filePath(
                u"%1-%2"_s.arg(QString::fromUtf16(title.data(), static_cast<qsizetype>(title.size())),
                               QString::fromLatin1(appearanceName)));
            model.useTemplate(index);
            waitUntil([&] { return !view.isWorking(); }, 30'000);
            letEventsPass(200);
            const auto& exporting = model.exporting();
            if (model.status() != MermaidToolViewModel::Status::rendered ||
                !view.grab().save(path + u".png"_s) ||
                !write(path + u"-export.svg"_s, fetched(exporting.fetchSVG).toUtf8()) ||
                !write(path + u"-export.png"_s, fetched(exporting.fetchPNG))) {
                std::fprintf(stderr, "mermaid_gallery: %s\n", qUtf8Printable(path));
                return 1;
            }
        }
    }
    return 0;
}
