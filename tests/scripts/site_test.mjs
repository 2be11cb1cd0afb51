// Checks the documentation's site as readers meet it: every link and picture leads somewhere, every member of the contract
// has a place, the search finds it, and nothing is fetched from elsewhere. Prints what is wrong; status 0 if nothing is.
//
//   node site_test.mjs <folder of the site> <contract of a release>
import { existsSync, readdirSync, readFileSync } from 'node:fs';
import { dirname, join, normalize, relative } from 'node:path';
import vm from 'node:vm';

const [site, contract] = process.argv.slice(2);
const faults = [];
const fault = text => faults.push(text);

const files = readdirSync(site, { recursive: true }).map(String);
const pages = new Map(files.filter(file => file.endsWith('.html')).map(file => {
    const html = readFileSync(join(site, file), 'utf8');
    return [normalize(file), { html, ids: [...html.matchAll(/ id="([^"]*)"/g)].map(match => match[1]) }];
}));
if (pages.size < 15) fault(`only ${pages.size} pages`);

const reached = new Set(['index.html']), used = new Set();
for (const [file, { html, ids }] of pages) {
    for (const id of new Set(ids)) if (ids.filter(other => other === id).length > 1) fault(`${file}: two parts are called ${id}`);
    for (const [, kind, address] of html.matchAll(/ (href|src|action)="([^"]*)"/g)) {
        if (/^[a-z]+:|^\/\//i.test(address)) {
            if (kind !== 'href') fault(`${file}: ${address} is fetched from elsewhere`);
            continue;
        }
        const [path, anchor] = address.split('#');
        const wanted = path ? normalize(join(dirname(file), path)) : file;
        if (wanted.startsWith('..')) fault(`${file}: ${address} leads out of the site`);
        else if (!existsSync(join(site, wanted))) fault(`${file}: ${address} leads nowhere`);
        else if (anchor && !pages.get(wanted)?.ids.includes(anchor)) fault(`${file}: ${address} has no such part`);
        reached.add(wanted);
        used.add(wanted);
    }
    for (const [picture] of html.matchAll(/<img[^>]*>/g)) if (!/ alt="[^"]+"/.test(picture)) fault(`${file}: ${picture} says nothing`);
    if (!/<title>[^<]+<\/title>/.test(html) || !/<html lang=/.test(html)) fault(`${file}: no title, or no language`);
    if (/language-mermaid/.test(html)) fault(`${file}: a diagram is not drawn`);
    if (/\]\(|<p>\|/.test(html.replace(/<(pre|code)>.*?<\/\1>/gs, ''))) fault(`${file}: something was not converted`);
}
for (const file of pages.keys()) if (!reached.has(file)) fault(`${file} cannot be reached`);
for (const file of files) if (file.endsWith('.png') && !used.has(normalize(file))) fault(`${file} is shown nowhere`);

// The search, with its index as a page loads it.
const context = vm.createContext({});
vm.runInContext(readFileSync(join(site, 'search-index.js'), 'utf8') + readFileSync(join(site, 'search.js'), 'utf8') +
    ';this.find = typed => findParts(searchIndex, typed);', context);
const first = (typed, wanted) => {
    const found = context.find(typed)[0]?.address;
    if (found !== wanted) fault(`"${typed}" finds ${found} first, not ${wanted}`);
};
let members = 0;
for (const [, control, kind, name] of readFileSync(contract, 'utf8').matchAll(/^(\w+) (get|put|method|event) \d+ (\w+)/gm)) {
    const page = `reference/${control}.html`, ids = pages.get(page)?.ids ?? [];
    const id = kind === 'event' && ids.includes(`event-${name}`) ? `event-${name}` : name;
    if (!ids.includes(id)) fault(`${control}.${name} has no place`);
    const found = context.find(`${control}.${name}`).map(part => part.address);
    if (!found.includes(`${page}#${id}`)) fault(`${control}.${name} is not found`);
    members++;
}
if (members < 250) fault(`only ${members} members in the contract`);
first('CellTextSet', 'reference/GridEdit.html#CellTextSet');
first('sort dates', 'guides/sort.html');
first('nothing seems to happen', 'when-nothing-seems-to-happen.html');
first('GridEdit', 'reference/GridEdit.html');
for (const nothing of ['', '   ', 'xyzzy']) if (context.find(nothing).length) fault(`"${nothing}" finds something`);

faults.forEach(text => console.log(text));
process.exit(faults.length ? 1 : 0);
