// Reads the catalogue and puts the pictures of its icons together, as SVG.
import { readFileSync } from 'node:fs';

const unit = 32; // the side of every picture in its own units

/** The catalogue's lines as `{ key, layers }`, in their order. */
export function readCatalogue(file) {
    const icons = [];
    let everywhere = new Map();
    readFileSync(file, 'utf8').split('\n').forEach((line, number) => {
        if (line === '' || line.startsWith('#')) return;
        const colon = line.indexOf(': ');
        if (colon < 1) throw new Error(`${file}:${number + 1}: no key`);
        const key = line.slice(0, colon);
        const recipe = line.slice(colon + 2);
        if (key === 'everywhere') {
            everywhere = new Map(recipe.split(' ').map(readColours));
        } else {
            const layers = recipe.split(' + ').map(readLayer);
            icons.push({ key, layers: layers.map((layer) => ({ ...layer, everywhere })) });
        }
    });
    if (new Set(icons.map((icon) => icon.key)).size !== icons.length) throw new Error(`${file}: a key stands twice`);
    return icons;
}

function readColours(word) {
    const [, from, to] = word.match(/^([0-9a-f]{6})=([0-9a-f]{6})$/) ?? [];
    if (!from) throw new Error(`"${word}" is neither a place nor a colour`);
    return [`#${from}`, `#${to}`];
}

function readLayer(text) {
    const [picture, ...words] = text.split(' ');
    const layer = { picture, x: 0, y: 0, size: unit, colours: new Map() };
    while (words.length) {
        const word = words.shift();
        if (word === 'at') {
            [layer.x, layer.y, layer.size] = words.shift().split(',').map(Number);
        } else {
            layer.colours.set(...readColours(word));
        }
    }
    return layer;
}

/** What finds the inside of a picture's SVG by its name in the catalogue. */
export function pictureSource(setFile, drawings) {
    const set = JSON.parse(readFileSync(setFile, 'utf8'));
    return (name) => {
        if (name.startsWith('./')) {
            return readFileSync(`${drawings}/${name.slice(2)}.svg`, 'utf8').replace(/<\/?svg[^>]*>/g, '');
        }
        const icon = set.icons[name];
        if (!icon) throw new Error(`the set has no "${name}"`);
        return icon.body;
    };
}

function recoloured(body, layer) {
    const left = new Set(layer.colours.keys());
    const result = body.replace(/#(?:[0-9a-f]{6}|[0-9a-f]{3})(?=")/gi, (colour) => {
        const full = (colour.length === 4 ? colour.replace(/[0-9a-f]/gi, '$&$&') : colour).toLowerCase();
        left.delete(full);
        return layer.colours.get(full) ?? layer.everywhere.get(full) ?? colour;
    });
    if (left.size) throw new Error(`"${layer.picture}" has no ${[...left].join(', ')}`);
    return result;
}

/** An icon as an SVG element whose left top corner is at a place; `name` sets its insides apart from others'. */
export function placed(icon, source, name, { x, y, size }) {
    const layers = icon.layers.map((layer, position) => {
        const own = `${name}-${position}-`;
        const body = recoloured(source(layer.picture), layer)
            .replace(/\bid="/g, `id="${own}`)
            .replace(/(url\(#|href="#)/g, `$1${own}`);
        return `<svg x="${layer.x}" y="${layer.y}" width="${layer.size}" height="${layer.size}"` +
            ` viewBox="0 0 ${unit} ${unit}">${body}</svg>`;
    });
    return `<svg x="${x}" y="${y}" width="${size}" height="${size}" viewBox="0 0 ${unit} ${unit}">` +
        `${layers.join('')}</svg>`;
}

/** An SVG document. */
export function svgDocument(width, height, content) {
    return '<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink"' +
        ` width="${width}" height="${height}">${content}</svg>`;
}
