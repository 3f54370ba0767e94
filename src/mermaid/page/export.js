// The diagram as a document of its own: SVG that shows its text outside of browsers too, and PNG.
'use strict';

const exporting = (() => {
    const namespace = 'http://www.w3.org/2000/svg';
    // What a canvas can hold.
    const longestSide = 16_384;
    const largestArea = 200_000_000;

    // Some diagrams still set a few labels as HTML. Each line of such a label becomes a text where the page
    // shows it.
    const textsOf = label => {
        const box = label.getBoundingClientRect();
        const width = Number(label.getAttribute('width')) || 1;
        const zoom = box.width / width || 1;
        const left = Number(label.getAttribute('x')) || 0;
        const top = Number(label.getAttribute('y')) || 0;
        const group = document.createElementNS(namespace, 'g');
        const walker = document.createTreeWalker(label, NodeFilter.SHOW_TEXT);
        const range = document.createRange();
        for (let node = walker.nextNode(); node; node = walker.nextNode()) {
            const style = getComputedStyle(node.parentElement);
            let line = null;
            for (let at = 0; at < node.length; ++at) {
                range.setStart(node, at);
                range.setEnd(node, at + 1);
                const [place] = range.getClientRects();
                if (!place || place.width === 0) {
                    continue;
                }
                if (!line || Math.abs(place.top - line.top) > place.height / 2) {
                    const text = document.createElementNS(namespace, 'text');
                    text.setAttribute('x', left + (place.left - box.left) / zoom);
                    text.setAttribute('y', top + (place.bottom - box.top) / zoom - parseFloat(style.fontSize) * 0.22);
                    text.setAttribute('style', `font: ${style.fontWeight} ${style.fontSize} ${style.fontFamily}; ` +
                                               `fill: ${style.color}; text-anchor: start`.replaceAll('"', "'"));
                    group.append(text);
                    line = { top: place.top, text };
                }
                line.text.textContent += node.data[at];
            }
        }
        return group;
    };

    const plainText = drawing => {
        for (const label of drawing.querySelectorAll('foreignObject')) {
            label.replaceWith(textsOf(label));
        }
        // Some programs drop the space that a word of its own span begins with.
        for (const span of drawing.querySelectorAll('tspan')) {
            if (span.childElementCount === 0 && span.textContent !== span.textContent.trim()) {
                span.setAttributeNS('http://www.w3.org/XML/1998/namespace', 'xml:space', 'preserve');
            }
        }
    };

    const source = (drawing, style) => {
        const copy = drawing.cloneNode(true);
        if (style) {
            const sheet = document.createElementNS(namespace, 'style');
            sheet.textContent = style;
            copy.prepend(sheet);
        }
        return new XMLSerializer().serializeToString(copy);
    };

    const decoded = async address => {
        const picture = new Image();
        picture.src = address;
        await picture.decode();
        return picture;
    };

    return {
        plainText,
        svg: drawing => source(drawing),

        png: async (drawing, size, scale) => {
            const fits = Math.min(scale, longestSide / size.width, longestSide / size.height,
                                  Math.sqrt(largestArea / (size.width * size.height)));
            // A picture cannot see the page's typeface, so it brings its own.
            const picture = await decoded('data:image/svg+xml;charset=utf-8,' +
                                          encodeURIComponent(source(drawing, interFontFaces)));
            const canvas = document.createElement('canvas');
            canvas.width = Math.max(Math.ceil(size.width * fits), 1);
            canvas.height = Math.max(Math.ceil(size.height * fits), 1);
            canvas.getContext('2d').drawImage(picture, 0, 0, canvas.width, canvas.height);
            return canvas.toDataURL('image/png');
        },
    };
})();
