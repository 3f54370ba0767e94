// The engine's configuration for each of its themes. Two of them wear the program's own colours.
'use strict';

const themes = (() => {
    const fontFamily = 'Inter, "Helvetica Neue", Arial, sans-serif';

    const variables = {
        default: {
            fontFamily, fontSize: '14px',
            mainBkg: '#e9f2fc', primaryColor: '#e9f2fc', nodeBorder: '#6ba6e0', primaryBorderColor: '#6ba6e0',
            primaryTextColor: '#1d1d1f', textColor: '#1d1d1f', titleColor: '#1d1d1f', nodeTextColor: '#1d1d1f',
            lineColor: '#6e6e73', arrowheadColor: '#6e6e73', defaultLinkColor: '#6e6e73',
            clusterBkg: '#fafafc', clusterBorder: '#d2d2d7', edgeLabelBackground: '#ffffff',
            actorBkg: '#e9f2fc', actorBorder: '#6ba6e0', actorTextColor: '#1d1d1f', actorLineColor: '#6e6e73',
            signalColor: '#6e6e73', signalTextColor: '#1d1d1f', classText: '#1d1d1f',
        },
        dark: {
            fontFamily, fontSize: '14px',
            mainBkg: '#22384f', primaryColor: '#22384f', nodeBorder: '#4a86c4', primaryBorderColor: '#4a86c4',
            primaryTextColor: '#e8e8ea', textColor: '#e8e8ea', titleColor: '#e8e8ea', nodeTextColor: '#e8e8ea',
            lineColor: '#9a9aa0', arrowheadColor: '#9a9aa0', defaultLinkColor: '#9a9aa0',
            clusterBkg: '#252527', clusterBorder: '#3a3a3c', edgeLabelBackground: '#1e1e1e',
            actorBkg: '#22384f', actorBorder: '#4a86c4', actorTextColor: '#e8e8ea', actorLineColor: '#9a9aa0',
            signalColor: '#9a9aa0', signalTextColor: '#e8e8ea', classText: '#e8e8ea',
        },
    };

    // Round corners, and labels that stand off the lines which they are for.
    const ownLook = '.node rect.basic, .node rect.label-container { rx: 6px; ry: 6px; } ' +
                    '.edgeLabel { font-size: 12px; } .edgeLabel rect.background { opacity: 1; }';

    const isDark = theme => /\bdark\b/.test(theme);

    // What these kinds of diagrams draw in colours of no theme.
    const inDark = {
        c4: `
        svg text[fill="#444444"] { fill: #e8e8ea; }
        svg [stroke="#444444"] { stroke: #9a9aa0; }`,

        zenuml: `
        svg .frame-border-inner, svg .frame-header-bg, svg .group-title-bg { fill: #1e1e1e; }
        svg .frame-border-outer, svg .occurrence, svg .fragment-header { fill: #3a3a3c; }
        svg .participant-box { fill: #22384f; stroke: #4a86c4; }
        svg .participant-icon { color: #e8e8ea; }
        svg :is(.frame-title, .participant-label, .message-label, .return-label, .return-icon, .comment-text) { fill: #e8e8ea; }
        svg :is(.fragment-label, .fragment-condition, .fragment-section-label, .group-title-text) { fill: #e8e8ea; }
        svg :is(.frame-header-line, .lifeline, .fragment-border, .fragment-separator, .group-outline) { stroke: #6e6e73; }
        svg :is(.message-line, .return-line, .return-arrow, .occurrence, .arrow-head, .arrow-head path) { stroke: #9a9aa0; }
        svg .arrow-head:not(.arrow-open) { fill: #9a9aa0; }
        svg .seq-number { fill: #9a9aa0; }`,
    };

    return {
        isDark,

        // What a drawing needs beside the theme that it has been drawn in.
        finish: (drawing, theme) => {
            const style = isDark(theme) && inDark[drawing.getAttribute('aria-roledescription')];
            if (style) {
                const sheet = document.createElementNS('http://www.w3.org/2000/svg', 'style');
                sheet.textContent = style;
                drawing.append(sheet);
            }
        },

        configuration: theme => ({
            startOnLoad: false,
            securityLevel: 'strict',
            // What a diagram's own directives cannot change.
            secure: ['secure', 'securityLevel', 'startOnLoad', 'maxTextSize', 'maxEdges', 'suppressErrorRendering',
                     'htmlLabels', 'dompurifyConfig'],
            suppressErrorRendering: true,
            maxTextSize: 5_000_000,
            maxEdges: 20_000,
            // Labels are plain SVG text, which every program shows that the drawing is exported to.
            htmlLabels: false,
            flowchart: { wrappingWidth: 200, minNodeWidth: 0 },
            journey: { textPlacement: 'tspan' },
            timeline: { textPlacement: 'tspan' },
            layout: 'dagre',
            look: /^(neo|redux)/.test(theme) ? 'neo' : 'classic',
            theme,
            fontFamily,
            ...(variables[theme] && { themeVariables: variables[theme], themeCSS: ownLook }),
        }),
    };
})();
