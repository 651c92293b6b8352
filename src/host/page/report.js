'use strict';
(() => {
  // The data: assets as arrays, in the order of the names here.
  const data = JSON.parse(document.getElementById('data').textContent);
  const [KUID, NAME, CLASS, FLAGS, SIZE, AUTHOR, REGION, ERA, BUILD, RATING, INSTALLED, MODIFIED, PLACE, PROBLEMS,
    DESCRIPTION, CATEGORY, KEYWORDS] = Array(17).keys();
  const ROW_HEIGHT = 64;
  const MAX_HEIGHT = 15000000;  // of an element; browsers go no further than about twice that
  const MAX_LISTED = 300;
  const LETTERS = [
    ['Open for edit', 'open'], ['Installed', ''], ['Archived', ''], ['On the download station', ''],
    ['Locally modified', ''], ['Missing dependencies', 'missing'], ['Errors', 'error']];
  const KINDS = {e: 'Errors', w: 'Warnings', m: 'Missing dependencies', o: 'Obsolete', i: 'Open for edit'};
  const SIZE_LIMITS = [1e4, 1e5, 1e6, 1e7, 1e8, Infinity];

  const element = (id) => document.getElementById(id);
  const list = element('list'), detail = element('detail'), search = element('search');
  const main = document.querySelector('main');
  const collator = new Intl.Collator(undefined, {sensitivity: 'base', numeric: true});

  // Makes an element; texts from assets only ever become text nodes.
  function make(tag, className, ...content) {
    const made = document.createElement(tag);
    if (className) made.className = className;
    made.append(...content);
    return made;
  }

  const count = (number) => number.toLocaleString('en');
  function sizeText(bytes) {
    if (bytes < 0) return 'unknown';
    if (bytes < 1000) return bytes + ' B';
    let unit = -1;
    do { bytes /= 1000; ++unit; } while (bytes >= 999.95 && unit < 3);
    return bytes.toFixed(1) + ' ' + ['KB', 'MB', 'GB', 'TB'][unit];
  }
  function dateText(seconds, withTime) {
    if (!seconds) return '–';
    const date = new Date(seconds * 1000), two = (n) => String(n).padStart(2, '0');
    const day = date.getFullYear() + '-' + two(date.getMonth() + 1) + '-' + two(date.getDate());
    return withTime ? day + ' ' + two(date.getHours()) + ':' + two(date.getMinutes()) : day;
  }
  const className = (asset) => data.classes[asset[CLASS]];
  const author = (asset) => data.authors[asset[AUTHOR]];
  const sizeStep = (asset) => SIZE_LIMITS.findIndex((limit) => asset[SIZE] < limit);
  const WEIGHTS = {e: 1e6, m: 1e4, w: 100, o: 10, i: 1};
  const problemRank = (asset) => asset[PROBLEMS].reduce((rank, [kind]) => rank + WEIGHTS[kind], 0);
  const byWeight = (problems) => [...problems].sort((a, b) => WEIGHTS[b[0]] - WEIGHTS[a[0]]);

  // Pictures are looked at when the table stands.
  let pictures = null;
  function picture(index, large) {
    const code = pictures && pictures[index];
    if (code) {
      const image = make('img', large ? 'large' : 'pic');
      image.src = 'data:image/jpeg;base64,' + code;
      image.alt = '';
      return image;
    }
    if (large) return '';
    const name = className(data.assets[index]);
    const place = make('div', 'pic nopic', name.slice(0, 2));
    place.style.background = 'hsl(' + [...name].reduce((h, c) => (h * 31 + c.codePointAt(0)) % 360, 7) + ' 28% 56%)';
    place.setAttribute('aria-hidden', 'true');
    return place;
  }

  function badges(flags) {
    const row = make('div', 'badges');
    LETTERS.forEach(([words, tone], i) => {
      const on = flags[i] === flags[i].toUpperCase();
      const badge = make('span', 'badge ' + (on ? 'on ' + tone : ''), flags[i]);
      badge.title = (on ? '' : 'Not: ') + words;
      row.append(badge);
    });
    return row;
  }

  const assetRow = (index) => {
    const asset = data.assets[index];
    const name = make('div', '', make('div', 'name', asset[NAME] || '(no name)'), make('div', 'kuid', asset[KUID]));
    name.title = asset[NAME];
    const problems = make('div', 'problems');
    byWeight(asset[PROBLEMS]).slice(0, 4).forEach(([kind, text], i) => problems.append(i ? ' ' : '', make('span', kind, text)));
    return [picture(index), name, make('div', 'cut wide', className(asset)), badges(asset[FLAGS]),
      make('div', 'number', sizeText(asset[SIZE])), make('div', 'cut wide', author(asset)[1]),
      make('div', 'wide', dateText(asset[MODIFIED])), problems];
  };
  const missingRow = (index) => {
    const [kuid, name, users] = data.missing[index];
    const names = users.slice(0, 6).map((user) => data.assets[user][NAME] || data.assets[user][KUID]).join(', ');
    return [make('div', '', make('div', 'name', name || 'Unknown asset'), make('div', 'kuid', kuid)),
      make('div', 'number', count(users.length)), make('div', 'cut', names)];
  };

  const byText = (value) => (a, b) => collator.compare(value(a), value(b));
  const byNumber = (value) => (a, b) => value(a) - value(b);
  const VIEWS = {
    assets: {
      items: data.assets, row: assetRow, open: openAsset,
      words: (a) => [a[KUID], a[NAME], className(a), author(a)[1], a[REGION], a[KEYWORDS],
        ...a[PROBLEMS].map((p) => p[1])].join('\n').toLowerCase(),
      columns: [
        {head: ''},
        {id: 'name', head: 'Name', order: byText((a) => a[NAME])},
        {id: 'class', head: 'Class', order: byText(className), look: 'wide'},
        {id: 'state', head: 'State', order: byText((a) => a[FLAGS])},
        {id: 'size', head: 'Size', order: byNumber((a) => a[SIZE]), look: 'number', down: true},
        {id: 'author', head: 'Author', order: byText((a) => author(a)[1]), look: 'wide'},
        {id: 'modified', head: 'Modified', order: byNumber((a) => a[MODIFIED]), look: 'wide', down: true},
        {id: 'problems', head: 'What is wrong', order: byNumber(problemRank), down: true}],
    },
    missing: {
      items: data.missing, row: missingRow, open: openMissing,
      words: (m) => (m[0] + '\n' + m[1]).toLowerCase(),
      columns: [
        {id: 'name', head: 'Missing asset', order: byText((m) => m[1] + m[0])},
        {id: 'users', head: 'Needed by', order: byNumber((m) => m[2].length), look: 'number', down: true},
        {head: 'Who needs it'}],
    },
  };
  const FILTERS = {
    problem: (a, value) => a[PROBLEMS].some((p) => p[0] === value),
    class: (a, value) => className(a) === value,
    author: (a, value) => String(author(a)[0]) === value,
    size: (a, value) => String(sizeStep(a)) === value,
  };

  // What is shown. It stands in the address behind the '#', so that a view can be kept and sent.
  const state = {view: 'assets', q: '', sort: '', filters: {}, detail: ''};
  let shown = [];

  function readAddress() {
    const parts = new URLSearchParams(location.hash.slice(1));
    state.view = parts.get('view') in VIEWS ? parts.get('view') : 'assets';
    state.q = parts.get('q') || '';
    state.sort = parts.get('sort') || '';
    state.detail = parts.get('detail') || '';
    state.filters = {};
    for (const key of Object.keys(FILTERS)) if (parts.has(key)) state.filters[key] = parts.get(key);
  }
  function writeAddress() {
    const parts = new URLSearchParams();
    if (state.view !== 'assets') parts.set('view', state.view);
    if (state.q) parts.set('q', state.q);
    if (state.sort) parts.set('sort', state.sort);
    for (const [key, value] of Object.entries(state.filters)) parts.set(key, value);
    if (state.detail) parts.set('detail', state.detail);
    history.replaceState(null, '', '#' + parts);
  }

  function choose() {
    const view = VIEWS[state.view];
    view.texts = view.texts || view.items.map(view.words);
    const words = state.q.toLowerCase().split(/\s+/).filter(Boolean);
    const filters = state.view === 'assets' ? Object.entries(state.filters) : [];
    shown = [];
    view.items.forEach((item, i) => {
      if (words.every((word) => view.texts[i].includes(word)) &&
          filters.every(([key, value]) => FILTERS[key](item, value))) shown.push(i);
    });
    const down = state.sort.startsWith('-');
    const column = view.columns.find((c) => c.id && c.id === state.sort.replace('-', ''));
    if (!column) return;
    shown.sort((a, b) => column.order(view.items[a], view.items[b]) * (down ? -1 : 1) || a - b);
  }

  // Only the rows in sight exist. Where the list is taller than an element may be, places are scaled.
  let drawn = '';
  function draw() {
    const view = VIEWS[state.view];
    const full = shown.length * ROW_HEIGHT, height = Math.min(full, MAX_HEIGHT);
    const top = Math.max(0, -list.getBoundingClientRect().top);
    const scale = height > innerHeight ? (full - innerHeight) / (height - innerHeight) : 1;
    const shift = top - top * scale;
    const first = Math.max(0, Math.floor(top * scale / ROW_HEIGHT) - 4);
    const end = Math.min(shown.length, Math.ceil((top * scale + innerHeight) / ROW_HEIGHT) + 4);
    const key = [first, end, Math.round(shift)].join();
    if (key === drawn) return;
    drawn = key;
    list.style.height = height + 'px';
    const rows = [];
    for (let i = first; i < end; ++i) {
      const row = make('div', 'row', ...view.row(shown[i]));
      row.style.top = i * ROW_HEIGHT + shift + 'px';
      row.dataset.index = shown[i];
      row.dataset.kuid = view.items[shown[i]][0];
      row.setAttribute('role', 'row');
      row.tabIndex = 0;
      rows.push(row);
    }
    list.replaceChildren(...rows);
  }

  function drawHeads() {
    element('heads').replaceChildren(...VIEWS[state.view].columns.map((column) => {
      if (!column.id) return make('span', column.look, column.head);
      const head = make('button', column.look, column.head);
      if (state.sort.replace('-', '') === column.id) head.dataset.order = state.sort.startsWith('-') ? '-' : '+';
      head.onclick = () => {
        const up = column.id, down = '-' + column.id;
        const order = column.down ? [down, up, ''] : [up, down, ''];
        state.sort = order[order.indexOf(state.sort) + 1] || '';
        if (!order.includes(state.sort)) state.sort = order[0];
        show();
      };
      return head;
    }));
  }

  function chip(words, isOn, key, value) {
    const made = make('button', 'chip' + (isOn ? ' on' : ''), words);
    made.onclick = () => toggle(key, value);
    return made;
  }
  function drawChips() {
    const chips = [];
    if (state.view === 'assets') {
      for (const [kind, words] of Object.entries(KINDS)) {
        const number = data.counts[kind] || 0;
        if (number) chips.push(chip(words + ' ' + count(number), state.filters.problem === kind, 'problem', kind));
      }
      for (const key of ['class', 'author', 'size']) {
        if (key in state.filters) chips.push(chip(key + ': ' + filterWords(key) + ' ×', true, key, state.filters[key]));
      }
    }
    element('chips').replaceChildren(...chips);
  }
  function filterWords(key) {
    const value = state.filters[key];
    const bar = [...document.querySelectorAll('[data-filter]')].find((b) => b.dataset.filter === key + '=' + value);
    return bar && bar.querySelector('.label') ? bar.querySelector('.label').textContent : value;
  }

  function show() {
    writeAddress();
    main.className = state.view;
    choose();
    drawn = '';
    drawHeads();
    drawChips();
    const total = VIEWS[state.view].items.length;
    element('count').textContent =
      shown.length === total ? count(total) + ' in all' : count(shown.length) + ' of ' + count(total);
    element('empty').hidden = shown.length > 0;
    document.querySelectorAll('#views button').forEach((tab) =>
      tab.setAttribute('aria-selected', String(tab.dataset.view === state.view)));
    document.querySelectorAll('[data-filter]').forEach((bar) => {
      const [key, value] = splitFilter(bar.dataset.filter);
      bar.classList.toggle('on', state.filters[key] === value);
    });
    draw();
  }
  const splitFilter = (text) => [text.slice(0, text.indexOf('=')), text.slice(text.indexOf('=') + 1)];
  function toggle(key, value) {
    state.view = 'assets';
    if (state.filters[key] === value) delete state.filters[key]; else state.filters[key] = value;
    show();
  }

  function openDetail(kuid, ...content) {
    state.detail = kuid;
    writeAddress();
    const close = make('button', 'close', '×');
    close.setAttribute('aria-label', 'Close');
    close.onclick = closeDetail;
    detail.replaceChildren(close, ...content);
    detail.hidden = false;
    detail.scrollTop = 0;
    detail.focus();
  }
  function closeDetail() {
    state.detail = '';
    writeAddress();
    detail.hidden = true;
  }
  // What the address names; nothing if there is no such asset.
  function reopenDetail() {
    const view = VIEWS[state.view];
    const index = state.detail ? view.items.findIndex((item) => item[KUID] === state.detail) : -1;
    if (index < 0) detail.hidden = true; else view.open(index);
  }

  function openAsset(index) {
    const asset = data.assets[index];
    const fields = make('dl');
    const field = (name, value) => { if (value) fields.append(make('dt', '', name), make('dd', '', value)); };
    const [number, authorName] = author(asset);
    field('Class', className(asset));
    field('Category', asset[CATEGORY]);
    field('State', badges(asset[FLAGS]));
    field('Author', authorName === '#' + number ? authorName : authorName + ' (' + number + ')');
    field('Regions', asset[REGION].replaceAll(';', ', '));
    field('Eras', asset[ERA].replaceAll(';', ', '));
    field('Keywords', asset[KEYWORDS].replaceAll(';', ', '));
    field('Size', sizeText(asset[SIZE]));
    field('Build', asset[BUILD] ? String(asset[BUILD]) : '');
    field('Rating', asset[RATING] >= 0 ? asset[RATING] + ' of 5' : '');
    field('Installed', dateText(asset[INSTALLED], true));
    field('Modified', dateText(asset[MODIFIED], true));
    field('Folder', asset[PLACE]);
    const problems = make('ul', '', ...byWeight(asset[PROBLEMS]).map(([kind, text]) => make('li', kind, text)));
    openDetail(asset[KUID], make('h2', '', asset[NAME] || '(no name)'), make('div', 'kuid', asset[KUID]), picture(index, true),
      ...(asset[PROBLEMS].length ? [make('h3', '', 'What is wrong'), problems] : []), fields,
      ...(asset[DESCRIPTION] ? [make('h3', '', 'Description'), make('p', '', asset[DESCRIPTION])] : []));
  }

  function openMissing(index) {
    const [kuid, name, users] = data.missing[index];
    const items = users.slice(0, MAX_LISTED).map((user) => {
      const link = make('button', '', data.assets[user][NAME] || data.assets[user][KUID]);
      link.onclick = () => { state.view = 'assets'; show(); openAsset(user); };
      return make('li', '', link);
    });
    if (users.length > MAX_LISTED) items.push(make('li', '', 'and ' + (users.length - MAX_LISTED) + ' more'));
    openDetail(kuid, make('h2', '', name || 'Unknown asset'), make('div', 'kuid', kuid),
      make('h3', '', 'Needed by ' + count(users.length) + (users.length === 1 ? ' asset' : ' assets')), make('ul', '', ...items));
  }

  function onActivate(target) {
    const filtered = target.closest('[data-filter]');
    if (filtered) return toggle(...splitFilter(filtered.dataset.filter));
    const row = target.closest('.row');
    if (row && list.contains(row)) VIEWS[state.view].open(Number(row.dataset.index));
  }
  document.addEventListener('click', (event) => onActivate(event.target));
  document.addEventListener('keydown', (event) => {
    if (event.key === 'Escape') closeDetail();
    if (event.key === 'Enter' && event.target.matches('.row, .bar')) onActivate(event.target);
    if (event.key === '/' && event.target !== search) { event.preventDefault(); search.focus(); }
  });
  document.querySelectorAll('#views button').forEach((tab) => {
    tab.onclick = () => { state.view = tab.dataset.view; state.sort = ''; show(); };
  });
  search.addEventListener('input', () => { state.q = search.value; show(); });
  element('clear').onclick = () => { state.q = search.value = ''; state.filters = {}; show(); };
  addEventListener('scroll', () => requestAnimationFrame(draw), {passive: true});
  addEventListener('resize', () => { drawn = ''; draw(); });
  addEventListener('hashchange', start);

  function start() {
    readAddress();
    search.value = state.q;
    show();
    reopenDetail();
  }
  start();
  document.documentElement.dataset.ready = Math.round(performance.now());
  setTimeout(() => {
    pictures = JSON.parse(element('pictures').textContent);
    drawn = '';
    draw();
    reopenDetail();
    document.documentElement.dataset.complete = Math.round(performance.now());
  });
})();
