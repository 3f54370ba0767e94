// The words of the Mermaid language that the editor knows.
#pragma once

#include <array>
#include <string_view>

namespace tarnquill::MermaidVocabulary {

inline constexpr std::array<std::u16string_view, 29> kKeywords{
    u"subgraph",   u"end",     u"direction", u"participant", u"actor",    u"note",
    u"over",       u"loop",    u"alt",       u"else",        u"opt",      u"par",
    u"and",        u"rect",    u"critical",  u"break",       u"activate", u"deactivate",
    u"autonumber", u"class",   u"click",     u"style",       u"classDef", u"linkStyle",
    u"state",      u"section", u"title",     u"accTitle",    u"accDescr"};

// Of two types that begin alike the longer stands first.
inline constexpr std::array<std::u16string_view, 26> kDiagramTypes{
    u"flowchart",    u"graph",           u"sequenceDiagram",
    u"classDiagram", u"stateDiagram-v2", u"stateDiagram",
    u"erDiagram",    u"journey",         u"gantt",
    u"pie",          u"quadrantChart",   u"requirementDiagram",
    u"gitGraph",     u"mindmap",         u"timeline",
    u"zenuml",       u"sankey-beta",     u"xychart-beta",
    u"block-beta",   u"packet-beta",     u"architecture-beta",
    u"kanban",       u"radar-beta",      u"treemap-beta",
    u"C4Context",    u"C4Container"};

} // namespace tarnquill::MermaidVocabulary
