// The engine numbers the lines of what is left of a source once it has taken its front matter, directives,
// comments and leading blank lines away. This finds the source's own line again.
'use strict';

function sourceLine(source, engineLine) {
    let text = source.replace(/\r\n?/g, '\n');
    const lines = text.split('\n').map((_, index) => index + 1);

    const breaksBefore = position => text.slice(0, position).split('\n').length - 1;
    const cut = (start, end) => {
        const isLineStart = start === 0 || text[start - 1] === '\n';
        const [first, last] = [breaksBefore(start), breaksBefore(end)];
        lines.splice(isLineStart ? first : first + 1, last - first);
        text = text.slice(0, start) + text.slice(end);
    };
    const cutAll = pattern => {
        for (const match of [...text.matchAll(pattern)].reverse()) {
            cut(match.index, match.index + match[0].length);
        }
    };

    cutAll(/^\s*---[^\S\n]*\n[^]*?\n[^\S\n]*---[^\S\n]*\n+/g);
    cutAll(/%%\{[^]*?\}%%/g);
    cutAll(/^\s*%%(?!\{).*\n?/gm);
    cutAll(/^\s+/g);
    if (/^(flowchart|graph)\b/.test(text)) {
        cutAll(/(?<=\})\s+(?=\n)/g); // The engine reads a brace and the blank lines after it as one line.
    }
    // An end that comes too early is told of the line behind it.
    return Math.min(lines[Math.min(engineLine, lines.length) - 1], source.trimEnd().split(/\r\n?|\n/).length);
}
