// Zoom and position of the diagram. It is fitted to the view until the user zooms or pans; every change is
// told to the program.
'use strict';

const viewport = (() => {
    const margin = 48;
    const smallest = 0.02;
    const largest = 20;
    const step = 1.25;
    const panStep = 40;

    const stage = document.getElementById('stage');
    const diagram = document.getElementById('diagram');
    let size = { width: 0, height: 0 };
    let scale = 1;
    let x = 0;
    let y = 0;
    let isAutoFit = true;
    let told = '';

    const show = () => {
        diagram.style.transform = `translate(${x}px, ${y}px) scale(${scale})`;
        const state = { scale, isAutoFit };
        if (JSON.stringify(state) !== told) {
            told = JSON.stringify(state);
            window.webkit?.messageHandlers.viewState.postMessage(state);
        }
    };

    const fit = () => {
        const { clientWidth, clientHeight } = stage;
        if (size.width > 0 && clientWidth > 0 && clientHeight > 0) {
            const room = { width: Math.max(clientWidth - 2 * margin, 1), height: Math.max(clientHeight - 2 * margin, 1) };
            scale = Math.max(Math.min(1, room.width / size.width, room.height / size.height), smallest);
            // Whole pixels keep thin lines sharp.
            x = Math.round((clientWidth - size.width * scale) / 2);
            y = Math.round((clientHeight - size.height * scale) / 2);
        }
        isAutoFit = true;
        show();
    };

    // The point of the stage keeps the diagram's point that it shows.
    const zoomTo = (wanted, point = { x: stage.clientWidth / 2, y: stage.clientHeight / 2 }) => {
        const next = Math.min(Math.max(wanted, smallest), largest);
        x = point.x - (point.x - x) * next / scale;
        y = point.y - (point.y - y) * next / scale;
        scale = next;
        isAutoFit = false;
        show();
    };

    const panBy = (dx, dy) => {
        x += dx;
        y += dy;
        isAutoFit = false;
        show();
    };

    stage.addEventListener('wheel', event => {
        event.preventDefault();
        const pixels = event.deltaMode === WheelEvent.DOM_DELTA_LINE ? event.deltaY * 16 : event.deltaY;
        const speed = event.ctrlKey ? 0.01 : 0.002; // A pinch on a touch pad arrives as a wheel with Ctrl.
        zoomTo(scale * Math.exp(-pixels * speed), { x: event.clientX, y: event.clientY });
    }, { passive: false });

    // One pointer drags the diagram, two pinch it.
    const pointers = new Map();
    const middle = () => {
        const all = [...pointers.values()];
        return { x: all.reduce((sum, p) => sum + p.x, 0) / all.length, y: all.reduce((sum, p) => sum + p.y, 0) / all.length };
    };
    const spread = () => {
        const [a, b] = pointers.values();
        return b ? Math.hypot(a.x - b.x, a.y - b.y) : 0;
    };
    stage.addEventListener('pointerdown', event => {
        if (event.button === 0 || event.button === 1) {
            stage.setPointerCapture(event.pointerId);
            pointers.set(event.pointerId, { x: event.clientX, y: event.clientY });
            stage.classList.add('panning');
        }
    });
    stage.addEventListener('pointermove', event => {
        if (!pointers.has(event.pointerId)) {
            return;
        }
        const before = { middle: middle(), spread: spread() };
        pointers.set(event.pointerId, { x: event.clientX, y: event.clientY });
        const after = { middle: middle(), spread: spread() };
        panBy(after.middle.x - before.middle.x, after.middle.y - before.middle.y);
        if (before.spread > 0) {
            zoomTo(scale * after.spread / before.spread, after.middle);
        }
    });
    const release = event => {
        pointers.delete(event.pointerId);
        stage.classList.toggle('panning', pointers.size > 0);
    };
    stage.addEventListener('pointerup', release);
    stage.addEventListener('pointercancel', release);
    stage.addEventListener('dblclick', fit);

    const keys = {
        '+': () => zoomTo(scale * step),
        '=': () => zoomTo(scale * step),
        '-': () => zoomTo(scale / step),
        '0': () => zoomTo(1),
        'f': fit,
        'ArrowLeft': () => panBy(panStep, 0),
        'ArrowRight': () => panBy(-panStep, 0),
        'ArrowUp': () => panBy(0, panStep),
        'ArrowDown': () => panBy(0, -panStep),
    };
    stage.addEventListener('keydown', event => {
        if (!event.ctrlKey && !event.altKey && !event.metaKey && keys[event.key]) {
            event.preventDefault();
            keys[event.key]();
        }
    });

    new ResizeObserver(() => {
        if (isAutoFit) {
            fit();
        }
    }).observe(stage);

    return {
        // The diagram has been drawn anew, in this size at 100 %.
        setSize: newSize => {
            size = newSize;
            if (isAutoFit) {
                fit();
            }
        },
        fit,
        zoomTo,
        zoomIn: () => zoomTo(scale * step),
        zoomOut: () => zoomTo(scale / step),
    };
})();

function requestAutoFit() {
    viewport.fit();
}
