// Finds parts of pages and members by their words. The index is a script beside this one, so that pages that lie in a
// folder can be searched as well as those of a server.

// The best at first: members and headings whose name begins with what was typed, then names that hold it, then texts
// that have all the words.
function findParts(index, typed, most = 12) {
    const words = typed.toLowerCase().split(/\s+/).filter(Boolean);
    if (words.length === 0) return [];
    const phrase = words.join(' ');
    const found = [];
    for (const [title, of, address, text] of index) {
        const name = title.toLowerCase();
        const own = name.slice(name.lastIndexOf('.') + 1);
        const all = `${name} ${of.toLowerCase()} ${text.toLowerCase()}`;
        if (!words.every(word => all.includes(word))) continue;
        let worth = words.filter(word => name.includes(word)).length * 10;
        if (own === phrase || name === phrase) worth += 100;
        else if (own.startsWith(phrase) || name.startsWith(phrase)) worth += 60;
        else if (name.includes(phrase)) worth += 30;
        if (!address.includes('#')) worth += 5;
        found.push({ title, of, address, worth });
    }
    return found.sort((a, b) => b.worth - a.worth || a.title.length - b.title.length).slice(0, most);
}

if (typeof document !== 'undefined') {
    const field = document.getElementById('search');
    const list = document.getElementById('found');
    const show = () => {
        const parts = findParts(searchIndex, field.value);
        list.replaceChildren(...parts.map(part => {
            const link = document.createElement('a');
            link.href = field.dataset.up + part.address;
            link.textContent = part.title;
            if (part.of) {
                const of = document.createElement('span');
                of.textContent = ` ${part.of}`;
                link.append(of);
            }
            const entry = document.createElement('li');
            entry.append(link);
            return entry;
        }));
        list.hidden = parts.length === 0;
    };
    field.addEventListener('input', show);
    field.addEventListener('focus', show);
    field.form.addEventListener('keydown', event => {
        const links = [...list.querySelectorAll('a')];
        const at = links.indexOf(document.activeElement);
        if (event.key === 'ArrowDown') links[Math.min(at + 1, links.length - 1)]?.focus();
        else if (event.key === 'ArrowUp') (at > 0 ? links[at - 1] : field).focus();
        else if (event.key === 'Enter' && at < 0) links[0]?.click();
        else if (event.key === 'Escape') list.hidden = true;
        else return;
        event.preventDefault();
    });
    document.addEventListener('click', event => {
        if (!field.form.contains(event.target)) list.hidden = true;
    });
    document.addEventListener('keydown', event => {
        if (event.key === '/' && document.activeElement !== field) {
            event.preventDefault();
            field.focus();
        }
    });
}
