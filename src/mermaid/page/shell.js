// What the program calls: boot, renderDiagram, setTheme, getPNG and getSVG. The last good diagram stays until
// there is a better one.
'use strict';

const shell = {
    source: '',
    theme: '',
    drawing: null, // the svg element on the stage
    drawnSource: '',
    size: { width: 0, height: 0 },
    count: 0,
};

const element = id => document.getElementById(id);

// The engine takes time and memory by the square of a label's length, far beyond what anybody could read.
const longestLine = 50_000;

// The engine's settings and the workshop are for one drawing at a time.
let turn = Promise.resolve();
function inTurn(work) {
    turn = turn.then(work, work);
    return turn;
}

function loadScript(address) {
    return new Promise((resolve, reject) => {
        const script = document.createElement('script');
        script.src = address;
        script.onload = resolve;
        script.onerror = () => reject(new Error(`${address} cannot be loaded.`));
        document.head.append(script);
    });
}

// This diagram kind is a package of its own, as large as the rest of the engine: only who uses it waits for it.
let zenuml;
function loadZenuml() {
    zenuml ??= loadScript('mermaid-zenuml.min.js').then(
        () => mermaid.registerExternalDiagrams([window['mermaid-zenuml']]));
    return zenuml;
}

function useTheme(theme) {
    shell.theme = theme;
    document.documentElement.classList.toggle('dark', themes.isDark(theme));
    mermaid.initialize(themes.configuration(theme));
}

async function boot(theme) {
    const style = document.createElement('style');
    style.textContent = interFontFaces;
    document.head.append(style);
    // Labels are measured while they are drawn, so the typeface has to be there first.
    await Promise.all([document.fonts.load('14px Inter'), document.fonts.load('bold 14px Inter')]);
    useTheme(theme);
    return typeof mermaid.render === 'function';
}

function lineOf(error, source) {
    if (error?.sourceLine) {
        return error.sourceLine;
    }
    const fromParser = error?.result?.parserErrors?.[0]?.token?.startLine ?? error?.result?.lexerErrors?.[0]?.line;
    const line = Number(/\bon line (\d+)/.exec(error?.message)?.[1] ?? fromParser ?? error?.hash?.line + 1);
    return Number.isInteger(line) && line > 0 ? sourceLine(source, line) : undefined;
}

function messageOf(error, line) {
    const message = String(error?.message ?? error ?? '').trim() || 'Unknown error.';
    return line ? message.replace(/\bon line \d+/, `on line ${line}`) : message;
}

function showError(message, line) {
    element('message').textContent = message;
    element('line').textContent = line ? `Line ${line}` : '';
    element('error').classList.toggle('leads', Boolean(line));
    element('error').hidden = false;
}

function sizeOf(drawing) {
    const box = drawing.viewBox.baseVal;
    const { width, height } = box && box.width > 0 ? box : drawing.getBoundingClientRect();
    return { width, height };
}

function place(drawing) {
    shell.size = sizeOf(drawing);
    drawing.setAttribute('width', shell.size.width);
    drawing.setAttribute('height', shell.size.height);
    drawing.style.maxWidth = '';
    exporting.plainText(drawing);
    element('diagram').replaceChildren(drawing);
    shell.drawing = drawing;
    viewport.setSize(shell.size);
}

function refuseLongLine(source) {
    const index = source.split(/\r\n?|\n/).findIndex(line => line.length > longestLine && !/^\s*%%/.test(line));
    if (index >= 0) {
        throw Object.assign(new Error('This line is too long to draw.'), { sourceLine: index + 1 });
    }
}

async function draw(source) {
    refuseLongLine(source);
    if (/^\s*zenuml\b/m.test(source)) {
        await loadZenuml();
    }
    const workshop = element('workshop');
    try {
        const { svg } = await mermaid.render(`diagram-${++shell.count}`, source, workshop);
        workshop.innerHTML = svg;
        const drawing = workshop.querySelector('svg');
        themes.finish(drawing, shell.theme);
        place(drawing);
        shell.drawnSource = source;
    } finally {
        workshop.replaceChildren();
    }
}

async function render(source) {
    shell.source = source;
    if (source.trim() === '') {
        element('error').hidden = true;
        element('diagram').replaceChildren();
        shell.drawing = null;
        return { ok: true, svgBytes: 0 };
    }
    try {
        await draw(source);
        element('error').hidden = true;
        return { ok: true, svgBytes: new TextEncoder().encode(getSVG()).length };
    } catch (error) {
        const line = lineOf(error, source);
        const message = messageOf(error, line);
        showError(message, line);
        return { ok: false, message, ...(line && { line }) };
    }
}

function renderDiagram(code) {
    return inTurn(() => render(code));
}

function setTheme(theme) {
    return inTurn(async () => {
        useTheme(theme);
        if (shell.drawing) {
            await draw(shell.drawnSource);
        }
    });
}

function getPNG(scale) {
    return shell.drawing ? exporting.png(shell.drawing, shell.size, scale) : null;
}

function getSVG() {
    return shell.drawing ? exporting.svg(shell.drawing) : null;
}

// A link leads out of the page, so it is the program that follows it. A drag is no click, wherever it ends.
let pressed = { x: 0, y: 0 };
element('stage').addEventListener('pointerdown', event => { pressed = { x: event.clientX, y: event.clientY }; });
element('stage').addEventListener('click', event => {
    const { clientX: x, clientY: y } = event;
    const link = event.target.closest('a') ?? document.elementFromPoint(x, y)?.closest('#diagram a');
    event.preventDefault();
    const isDrag = event.detail > 0 && Math.hypot(x - pressed.x, y - pressed.y) > 4;
    if (link && !isDrag) {
        window.webkit?.messageHandlers.linkActivated.postMessage(link.href.baseVal);
    }
});

element('error').addEventListener('click', () => {
    if (element('error').classList.contains('leads')) {
        window.webkit?.messageHandlers.errorActivated.postMessage(null);
    }
});
