// Copies the engine's configuration for its getConfig(), see engine-script. Who asks for it may change it, two
// levels deep.
'use strict';

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
