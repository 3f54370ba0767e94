// notices.mjs --output FILE --programs FILE… --files FILE… --scripts FILE… --packages NAME…
// writes the notices of all that the programs are made of, in Markdown.
//
// --programs   our programs: the libraries that they ask for are looked up
// --files      files that the build puts into them, such as typefaces and headers
// --scripts    bundled scripts of npm packages with a source map beside them, which names what was bundled
// --packages   npm packages of which something else is taken
//
// Debian packages are described by their copyright files, npm packages by their licence files. Whatever has none
// ends the build, so that nothing is left out silently.

import { execFileSync, spawnSync } from 'node:child_process';
import { existsSync, readFileSync, readdirSync, realpathSync, writeFileSync } from 'node:fs';
import { basename, join } from 'node:path';
import { fileURLToPath } from 'node:url';

const COMMON_LICENSES = '/usr/share/common-licenses';

function fail(message) {
    console.error(`notices: ${message}`);
    process.exit(1);
}

// --- Debian packages ---------------------------------------------------------------------------------------------

/** The libraries that the dynamic linker is asked for by the program itself, as paths. */
function librariesOf(program) {
    const paths = new Map([...execFileSync('ldd', [program], { encoding: 'utf8' })
        .matchAll(/^\s*(\S+)(?: => (\S+))? \(0x/gm)].map(([, name, path]) => [basename(name), path ?? name]));
    const needed = execFileSync('readelf', ['--dynamic', '--wide', program], { encoding: 'utf8' })
        .matchAll(/\(NEEDED\).*\[(.+)\]/g);
    return [...needed].map(([, name]) => paths.get(name) ?? fail(`${program}: ${name} is not found`));
}

/** The packages that the files belong to. Debian 12 knows some files of /usr/lib by /lib, and links by either end. */
function debianPackagesOf(files) {
    const namesOf = file => [file, realpathSync(file)].flatMap(path => [path, path.replace(/^\/usr/, ''), `/usr${path}`]);
    // It ends with an error because it does not know every one of the names.
    const { stdout } = spawnSync('dpkg-query', ['--search', ...files.flatMap(namesOf)], { encoding: 'utf8' });
    const owners = new Map([...stdout.matchAll(/^([\w.+-]+).*?: (\/.*)$/gm)].map(([, name, path]) => [path, name]));
    return files.map(file => owners.get(namesOf(file).find(path => owners.has(path))) ?? fail(`no package has ${file}`));
}

/** The paragraphs of a machine-readable copyright file, as arrays of [field, text]. */
function paragraphsOf(text) {
    return text.split(/\n(?:[ \t]*\n)+/).map(paragraph =>
        [...paragraph.matchAll(/^([A-Za-z-]+):((?:.*)(?:\n[ \t].*)*)/gm)].map(([, field, value]) => [field, value]));
}

const unindented = text => text.replace(/^[ \t]\.?(?=$)/gm, '').replace(/^ /gm, '').trim();

/** What a copyright file says without its lists of files, which are of use to those who have the sources: every
    copyright line and every licence once. Files in free form are taken as they are. */
function condensed(text) {
    if (!/^Format:/m.test(text.slice(0, 500))) {
        return text.trim();
    }
    const holders = new Set();
    const licenses = new Map();
    const remarks = new Set();
    for (const [field, value] of paragraphsOf(text).flat()) {
        if (field === 'Copyright') {
            for (const line of value.split('\n').map(part => part.trim()).filter(part => part && part !== '.')) {
                holders.add(line);
            }
        } else if (field === 'License') {
            const [name, ...lines] = value.split('\n');
            const body = unindented(lines.join('\n'));
            licenses.set(name.trim(), [...new Set([...(licenses.get(name.trim()) ?? []), ...(body ? [body] : [])])]);
        } else if (field === 'Comment' || field === 'Disclaimer') {
            remarks.add(unindented(value));
        }
    }
    const blocks = [[...holders].join('\n')];
    for (const [name, bodies] of licenses) {
        blocks.push([`License: ${name}`, ...bodies].join('\n\n'));
    }
    blocks.push(...remarks);
    return blocks.filter(block => block).join('\n\n');
}

function debianSections(files) {
    return [...new Set(debianPackagesOf(files))].sort().map(name => {
        const path = `/usr/share/doc/${name}/copyright`;
        return { title: name, text: condensed(existsSync(path) ? readFileSync(path, 'utf8') : fail(`${path} is missing`)) };
    });
}

// --- npm packages ------------------------------------------------------------------------------------------------

const descriptionIn = folder => JSON.parse(readFileSync(join(folder, 'package.json'), 'utf8'));

/** Every installed package under the folder: its name to its folders, of which there is one for each version. */
function installedPackages(modules) {
    const found = new Map();
    const visit = folder => {
        for (const entry of existsSync(folder) ? readdirSync(folder, { withFileTypes: true }) : []) {
            const path = join(folder, entry.name);
            if (!entry.isDirectory() || entry.name === '.bin') {
                continue;
            }
            if (entry.name.startsWith('@')) {
                visit(path);
            } else if (existsSync(join(path, 'package.json'))) {
                const { name } = descriptionIn(path);
                found.set(name, [...(found.get(name) ?? []), path]);
                visit(join(path, 'node_modules'));
            }
        }
    };
    visit(modules);
    return found;
}

/** The names of the packages whose sources a bundle was made of. */
function bundledIn(script) {
    const map = readFileSync(`${script}.map`, 'utf8');
    return [...map.matchAll(/node_modules\/((?:@[\w.-]+\/)?\w[\w.-]*)\//g)].map(([, name]) => name);
}

/** Names and licences of a package's people, as it declares them, for want of a licence file. */
function declaredLicense({ license, author, homepage }) {
    const people = typeof author === 'string' ? author : author?.name;
    return [`The package has no licence file; it declares: ${license}.`, people, homepage].filter(part => part).join('\n');
}

/** The names and those of all that they depend on, because what a package was bundled from is in its own bundle, too. */
function withDependencies(names, installed) {
    const all = new Set(names);
    for (const name of all) {
        for (const folder of installed.get(name)) {
            for (const dependency of Object.keys(descriptionIn(folder).dependencies ?? {})) {
                if (installed.has(dependency) && !dependency.startsWith('@types/')) {
                    all.add(dependency);
                }
            }
        }
    }
    return [...all].sort();
}

function npmSections(names, modules) {
    const installed = installedPackages(modules);
    const missing = names.filter(name => !installed.has(name));
    if (missing.length > 0) {
        fail(`bundled, but not installed: ${missing.join(', ')} (see devDependencies in package.json; run npm ci)`);
    }
    return withDependencies(names, installed).flatMap(name => installed.get(name)).map(folder => {
        const description = descriptionIn(folder);
        const texts = readdirSync(folder, { withFileTypes: true })
            .filter(entry => entry.isFile() && /^(licen[sc]e|copying|notice)/i.test(entry.name))
            .map(entry => readFileSync(join(folder, entry.name), 'utf8').trim());
        if (texts.length === 0 && !description.license) {
            fail(`${description.name} says nothing of its licence`);
        }
        return {
            title: `${description.name} ${description.version}`,
            text: texts.length > 0 ? texts.join('\n\n') : declaredLicense(description),
        };
    });
}

// --- the document ------------------------------------------------------------------------------------------------

/** The licences that Debian keeps once for all packages, as far as the sections point to them. */
function commonLicenses(sections) {
    const named = sections.flatMap(({ text }) => [...text.matchAll(/\/common-licenses\/([\w.+-]*\w)/g)])
        .map(([, name]) => name);
    return [...new Set(named)].sort().filter(name => existsSync(join(COMMON_LICENSES, name))).map(name => ({
        title: name,
        text: readFileSync(join(COMMON_LICENSES, name), 'utf8').trim(),
    }));
}

/** Those with one and the same text become one. */
function merged(sections) {
    const titles = new Map();
    for (const { title, text } of sections) {
        titles.set(text, [...(titles.get(text) ?? []), title]);
    }
    return [...titles].map(([text, names]) => ({ title: names.join(', '), text }));
}

/** A text in a fence that is longer than any run of backticks in it. */
function fenced(text) {
    const longest = Math.max(2, ...[...text.matchAll(/`+/g)].map(([run]) => run.length));
    const fence = '`'.repeat(longest + 1);
    return `${fence}text\n${text}\n${fence}`;
}

/** The command line's words after each option. */
function wordsByOption(words) {
    const options = { '--output': [], '--programs': [], '--files': [], '--scripts': [], '--packages': [] };
    let current;
    for (const word of words) {
        current = options[word] ?? current ?? fail(`${word} follows no option`);
        if (!(word in options)) {
            current.push(word);
        }
    }
    return Object.values(options);
}

const [[output], programs, files, scripts, packages] = wordsByOption(process.argv.slice(2));

const debian = debianSections([...programs.flatMap(librariesOf), ...files]);
const modules = fileURLToPath(new URL('../node_modules', import.meta.url));
const npm = npmSections([...packages, ...scripts.flatMap(bundledIn)], modules);
const chapters = [
    ['Libraries, headers and typefaces', 'As the copyright files of their Debian packages describe them.', debian],
    ['Scripts and icons', 'As the npm packages that they were built from, and those that these depend on, describe them.', npm],
    ['Licences that are named above', 'Their full texts.', commonLicenses(debian)],
];
const lines = ['# Third-party notices', '', 'Tarnquill is made with the work of others, under these licences.', ''];
for (const [title, introduction, sections] of chapters) {
    lines.push(`## ${title}`, '', introduction, '');
    for (const section of merged(sections)) {
        lines.push(`### ${section.title}`, '', fenced(section.text), '');
    }
}
writeFileSync(output, lines.join('\n'));
