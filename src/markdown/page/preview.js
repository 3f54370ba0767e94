const content = document.getElementById('content');
let lineCount = 1;

// While a hold is on, the page's scrolls are its own. `ownY` is where they end; null while nobody can know.
let own = false;
let ownToken = 0;
let glideFrame = 0;
let ownY = null;

// What the last layout was measured at, and the last scroll's offset and range.
let posted = '';
let lastY = 0;
let lastMax = 0;
let layoutPending = false;

function post(message) {
    window.webkit?.messageHandlers?.sync?.postMessage(message);
}

function holdOwnScroll() {
    own = true;
    ownToken += 1;
    ownY = null;
}

// A scroll's event arrives in the frame after the scroll, hence two frames.
function releaseOwnScrollSoon() {
    const token = ++ownToken;
    requestAnimationFrame(() => requestAnimationFrame(() => {
        if (token === ownToken && !glideFrame) {
            own = false;
        }
    }));
}

function endHold() {
    cancelGlide();
    own = false;
    ownToken += 1;
}

function measure() {
    return [document.documentElement.scrollHeight, window.innerHeight, window.innerWidth].join(',');
}

function postLayout(userScroll) {
    const offset = window.scrollY;
    const tops = Array.from(document.querySelectorAll('[data-line]'), element => {
        const { top, bottom } = element.getBoundingClientRect();
        return [Number(element.dataset.line), top + offset, Number(element.dataset.end), bottom + offset];
    });
    posted = measure();
    post({
        kind: 'layout',
        tops,
        lineCount,
        height: document.documentElement.scrollHeight,
        viewport: window.innerHeight,
        scrollY: offset,
        userScroll
    });
}

function scheduleLayout() {
    if (layoutPending) {
        return;
    }
    layoutPending = true;
    requestAnimationFrame(() => {
        layoutPending = false;
        postLayout(false);
    });
}

function updateBody(html, lines) {
    lineCount = lines;
    holdOwnScroll();
    content.innerHTML = html;
    postLayout(false);
    releaseOwnScrollSoon();
}

function setLineCount(lines) {
    lineCount = lines;
    postLayout(false);
}

function cancelGlide() {
    cancelAnimationFrame(glideFrame);
    glideFrame = 0;
}

function scrollRange() {
    return Math.max(document.documentElement.scrollHeight - window.innerHeight, 0);
}

function scrollToY(y, glide) {
    cancelGlide();
    const target = Math.min(Math.max(y, 0), scrollRange());
    const isOpen = own && ownY === null;
    holdOwnScroll();
    const moveTo = offset => {
        window.scrollTo(0, offset);
        if (!isOpen) {
            ownY = window.scrollY;
        }
        lastY = window.scrollY;
        lastMax = scrollRange();
    };
    if (!glide || window.matchMedia('(prefers-reduced-motion: reduce)').matches) {
        moveTo(target);
        releaseOwnScrollSoon();
        return;
    }
    const from = window.scrollY;
    const start = performance.now();
    const step = now => {
        const t = Math.min(Math.max((now - start) / 150, 0), 1);
        moveTo(from + (target - from) * (1 - (1 - t) ** 3));
        if (t < 1) {
            glideFrame = requestAnimationFrame(step);
        } else {
            glideFrame = 0;
            releaseOwnScrollSoon();
        }
    };
    glideFrame = requestAnimationFrame(step);
}

function findMatchTop() {
    releaseOwnScrollSoon();
    const selection = window.getSelection();
    if (selection.rangeCount === 0) {
        return null;
    }
    const { top, width, height } = selection.getRangeAt(0).getBoundingClientRect();
    return width > 0 || height > 0 ? [top + window.scrollY, window.scrollY] : null;
}

window.addEventListener('scroll', () => {
    const y = window.scrollY;
    const max = document.documentElement.scrollHeight - window.innerHeight;
    // A reflow that shrank the range moved the offset onto its new end.
    const isClamp = y < lastY && max < lastMax && Math.abs(y - max) <= 1;
    const isOwn = own && (ownY === null || Math.abs(y - ownY) <= 1);
    const user = !isClamp && !isOwn;
    lastY = y;
    lastMax = max;
    if (user && own) {
        endHold();
    }
    if (user && posted !== measure()) {
        postLayout(true);
    }
    post({ kind: 'scroll', y, user });
}, { passive: true });

for (const type of ['wheel', 'mousedown', 'keydown']) {
    window.addEventListener(type, endHold, { passive: true, capture: true });
}

new ResizeObserver(scheduleLayout).observe(content);
window.addEventListener('resize', scheduleLayout);
