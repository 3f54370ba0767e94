// What the engine finds in the page that runs it.
'use strict';

// Younger than the web engine; links are not drawn without it.
URL.canParse ??= (address, base) => {
    try {
        new URL(address, base);
        return true;
    } catch {
        return false;
    }
};

// The engine's getConfig(), see engine-script. Who asks for a copy may change it, two levels deep.
function copyOfConfiguration(settings, depth = 2) {
    if (Array.isArray(settings)) {
        return [...settings];
    }
    const copy = {};
    for (const key of Object.keys(settings)) {
        const value = settings[key];
        if (typeof value !== 'object') {
            copy[key] = value;
        } else if (value !== null) {
            copy[key] = depth > 0 ? copyOfConfiguration(value, depth - 1) : value;
        }
    }
    return copy;
}
