// Explains the names of an object that an editor shows as formatted JSON, where the pointer rests on them.
#pragma once

#include <QObject>

#include <string_view>

namespace tarnquill {

class CodeEditor;

class NameToolTips : public QObject {
    Q_OBJECT

public:
    using MeaningOf = std::string_view (*)(std::string_view name);

    // Lives as long as the editor.
    NameToolTips(CodeEditor& editor, MeaningOf meaningOf);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    CodeEditor& m_editor;
    MeaningOf m_meaningOf;
};

} // namespace tarnquill
