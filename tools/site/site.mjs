// Makes the documentation's site: static pages from docs/, searchable and printable without a server.
//
//   node site.mjs <repository> <folder of the site>
//
// Needs cmark-gfm. A link to a page or a heading that the site has not ends it with an error.
import { spawnSync } from 'node:child_process';
import { cpSync, existsSync, mkdirSync, readFileSync, readdirSync, rmSync, writeFileSync } from 'node:fs';
import { dirname, join, posix } from 'node:path';

const [root, target] = process.argv.slice(2);
const docs = join(root, 'docs');
const version = readFileSync(join(root, 'CMakeLists.txt'), 'utf8').match(/^project\(OrbekControls VERSION (\S+)/m)[1];
const style = readFileSync(new URL('style.css', import.meta.url), 'utf8');
const search = readFileSync(new URL('search.js', import.meta.url), 'utf8');

const controls = readFileSync(join(docs, 'reference/README.md'), 'utf8').match(/(?<=\]\()\w+(?=\.md\))/g);
const guides = ['fill-a-grid', 'check-what-was-typed', 'sort', 'save-and-load', 'dates', 'numbers', 'colours', 'tabs', 'moving'];
for (const file of readdirSync(join(docs, 'guides')))
    if (!guides.includes(file.replace('.md', ''))) throw new Error(`docs/guides/${file} is in no list`);
// What the side of every page lists.
const sections = [
    ['', ['index.md', 'hosts.md']],
    ['Guides', [...guides.map(guide => `guides/${guide}.md`), 'icons.md', 'when-nothing-seems-to-happen.md']],
    ['Reference', ['reference/README.md', ...controls.map(control => `reference/${control}.md`)]],
    ['Releases', ['compatibility.md', 'reliability.md', 'security.md', '../CHANGELOG.md']],
];
const pages = new Map();  // by the source's path below docs
for (const path of sections.flatMap(([, paths]) => paths)) {
    const url = path.replace('../CHANGELOG', 'changes').replace('README', 'index').replace(/\.md$/, '.html');
    const source = readFileSync(join(docs, path), 'utf8').replaceAll('<version>', version);
    pages.set(path, { path, url, source, title: source.match(/^# (.*)$/m)[1], ids: new Set() });
}

const escaped = text => text.replace(/&/g, '&amp;').replace(/</g, '&lt;').replace(/"/g, '&quot;');
const plain = html => html.replace(/<[^>]*>/g, ' ').replace(/&lt;/g, '<').replace(/&gt;/g, '>').replace(/&quot;/g, '"')
    .replace(/&amp;/g, '&').replace(/\s+/g, ' ').trim();

function convert(markdown) {
    const made = spawnSync('cmark-gfm', ['-e', 'table'], { input: markdown, encoding: 'utf8' });
    if (made.status !== 0) throw new Error(made.stderr || 'cmark-gfm failed');
    return made.stdout;
}

// The part of mermaid's sequence diagrams that the pages use, drawn: participants, messages from one to another, notes.
function diagram(source) {
    const lanes = new Map(), steps = [];
    const lane = name => {
        if (!lanes.has(name)) lanes.set(name, { label: name, x: 120 + lanes.size * 260 });
        return lanes.get(name);
    };
    for (const line of source.trim().split('\n').slice(1).map(text => text.trim())) {
        const participant = line.match(/^participant (\w+)(?: as (.*))?$/);
        const message = line.match(/^(\w+)(--?)>>(\w+): (.*)$/);
        const note = line.match(/^Note over (\w+): (.*)$/);
        if (participant) lane(participant[1]).label = participant[2] ?? participant[1];
        else if (message) steps.push({ from: lane(message[1]), to: lane(message[3]), answer: message[2] === '--', text: message[4] });
        else if (note) steps.push({ over: lane(note[1]), text: note[2] });
        else throw new Error(`no line of a diagram: ${line}`);
    }
    const width = 240 + (lanes.size - 1) * 260, height = 60 + steps.length * 40;
    const text = (x, y, content, kind = '') => `<text x="${x}" y="${y}"${kind}>${escaped(content)}</text>`;
    const parts = [...lanes.values()].map(({ x, label }) =>
        text(x, 20, label, ' class="lane"') + `<line x1="${x}" y1="30" x2="${x}" y2="${height}" class="life"/>`);
    steps.forEach(({ from, to, over, answer, text: content }, at) => {
        const y = 66 + at * 40;
        if (over) {
            const half = Math.max(60, content.length * 3.6 + 12);
            parts.push(`<rect x="${over.x - half}" y="${y - 18}" width="${2 * half}" height="26" rx="4"/>` + text(over.x, y, content));
            return;
        }
        const end = to.x + (to.x > from.x ? -7 : 7), tip = to.x > from.x ? -8 : 8;
        parts.push(text((from.x + to.x) / 2, y - 7, content) +
            `<line x1="${from.x}" y1="${y}" x2="${end}" y2="${y}"${answer ? ' class="answer"' : ''}/>` +
            `<path d="M${to.x} ${y}l${tip} -4v8z"/>`);
    });
    const said = steps.map(step => step.over ? step.text : `${step.from.label} to ${step.to.label}: ${step.text}`).join('; ');
    return `<div class="wide"><svg class="diagram" role="img" aria-label="${escaped(said)}" width="${width}" height="${height}" ` +
        `viewBox="0 0 ${width} ${height}">${parts.join('')}</svg></div>`;
}

const index = [];  // what the search knows: title, page, address, text

function identify(page, text) {
    const id = text.toLowerCase().replace(/[^a-z0-9]+/g, '-').replace(/^-|-$/g, '') || 'part';
    let unique = id;
    for (let count = 2; page.ids.has(unique); ++count) unique = `${id}-${count}`;
    page.ids.add(unique);
    return unique;
}

function write(page) {
    let html = convert(page.source);
    const control = page.path.match(/^reference\/(\w+)\.md$/)?.[1];
    // Headings can be linked to, and found.
    html = html.replace(/<h([1-3])>(.*?)<\/h\1>/g, (_, level, text) =>
        `<h${level} id="${identify(page, plain(text))}">${text}</h${level}>`);
    // So can members, whose rows begin with their number.
    if (control && control !== 'README') {
        // What a property means comes before how it is kept, which few readers need.
        html = html.replace(/<tr>\n((?:<t([dh])>.*?<\/t\2>\n){3})((?:<t[dh]>.*?<\/t[dh]>\n){4})<(t[dh])>(.*?)<\/\4>\n<\/tr>/g,
            '<tr>\n$1<$4 class="help">$5</$4>\n$3</tr>');
        html = html.replace(/<tr>\n<td>(\d+)<\/td>\n<td><code>(\w+)(.*?)<\/tr>/gs, (row, number, name) => {
            const before = html.slice(0, html.indexOf(row));
            const kind = before.lastIndexOf('<h2 id="events"') > 0 ? 'event' : 'member';
            const id = kind === 'event' && page.ids.has(name) ? `event-${name}` : name;
            page.ids.add(id);
            index.push([`${control}.${name}`, kind === 'event' ? 'event' : '', `${page.url}#${id}`, plain(row)]);
            return row.replace('<tr>', `<tr id="${id}">`);
        });
        if (existsSync(join(docs, `pictures/${control}.png`)))
            html = html.replace('</h1>', `</h1>\n<p><img src="../pictures/${control}.png" alt="${control} in the gallery"></p>`);
    }
    html = html.replace(/<pre><code class="language-mermaid">(.*?)<\/code><\/pre>/gs, (_, source) => diagram(
        source.replace(/&gt;/g, '>').replace(/&lt;/g, '<').replace(/&quot;/g, '"').replace(/&amp;/g, '&')));
    html = html.replace(/<table>/g, '<div class="wide"><table>').replace(/<\/table>/g, '</table></div>');
    // A part from each heading to the next is an entry of the search.
    const parts = html.split(/(?=<h[12] id=")/);
    for (const part of parts) {
        const heading = part.match(/^<h([12]) id="(.*?)">(.*?)<\/h/);
        if (!heading) continue;
        const title = plain(heading[3]);
        index.push(heading[1] === '1' ? [title, '', page.url, plain(part)] : [title, page.title, `${page.url}#${heading[2]}`, plain(part)]);
    }
    page.html = html;
}

// Links between sources become links between pages; those to files that only the repository has cannot be followed.
function link(page, html) {
    return html.replace(/(href|src)="([^"]*)"/g, (whole, kind, address) => {
        if (/^[a-z]+:/.test(address) || address.startsWith('#')) return whole;
        const [path, anchor] = address.split('#');
        const wanted = posix.normalize(posix.join(posix.dirname(page.path), path));
        const found = pages.get(wanted) ?? pages.get(wanted.replace(/\/$/, '/README.md'));
        if (!found) {
            if (wanted.startsWith('pictures/') && existsSync(join(docs, wanted))) return whole;
            throw new Error(`${page.path}: ${address} leads nowhere`);
        }
        const place = posix.relative(posix.dirname(page.url), found.url);
        return `${kind}="${place}${anchor ? `#${anchor}` : ''}"`;
    });
}

function frame(page) {
    const up = '../'.repeat(page.url.split('/').length - 1);
    const navigation = sections.map(([name, paths]) => (name ? `<p>${name}</p>` : '') + '<ul>' + paths.map(path => {
        const other = pages.get(path);
        const here = other === page ? ' aria-current="page"' : '';
        return `<li><a href="${up}${other.url}"${here}>${escaped(other.title)}</a></li>`;
    }).join('') + '</ul>').join('\n');
    return `<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="color-scheme" content="light dark">
<title>${escaped(page.title)}${page.title.startsWith('Orbek') ? '' : ' – Orbek Controls'}</title>
<link rel="stylesheet" href="${up}style.css">
</head>
<body>
<a class="skip" href="#content">To the text</a>
<header>
<a class="brand" href="${up}index.html">Orbek Controls <span>${version}</span></a>
<form role="search" onsubmit="return false">
<input id="search" type="search" placeholder="Search members, events, guides" aria-label="Search" autocomplete="off" data-up="${up}">
<ul id="found" hidden></ul>
</form>
</header>
<div class="columns">
<nav aria-label="Pages">
${navigation}
</nav>
<main id="content">
${link(page, page.html)}
</main>
</div>
<script src="${up}search-index.js"></script>
<script src="${up}search.js"></script>
</body>
</html>
`;
}

rmSync(target, { recursive: true, force: true });
for (const page of pages.values()) write(page);
for (const page of pages.values()) {
    const file = join(target, page.url);
    mkdirSync(dirname(file), { recursive: true });
    writeFileSync(file, frame(page));
}
cpSync(join(docs, 'pictures'), join(target, 'pictures'), { recursive: true });
writeFileSync(join(target, 'style.css'), style);
writeFileSync(join(target, 'search.js'), search);
writeFileSync(join(target, 'search-index.js'), `const searchIndex = ${JSON.stringify(index)};\n`);
console.log(`${pages.size} pages`);
