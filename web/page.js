// The page around the game: loading, starting and the end.
//
// What a program that watches the page may rely on, besides the ids in index.html:
//   <html data-state="...">  loading, ready (waits for the button), starting (unpacks the first
//                            track), racing, ended (waits for the button), failed
//   #game                    the canvas, 640 by 480 pixels; has the focus during a race
//   #start                   the button that starts the race and the next one
//   window.tarvik.frames   frames shown since the race began
//   window.tarvik.laps       laps completed since then: { track, frames }, the penalty included
// The document gets a "statechange" event whenever data-state has changed.
'use strict';

(() => {
  const DATA = ['data/race1.map', 'data/race2.map', 'data/graphics.dat'];

  const element = (id) => document.getElementById(id);
  const canvas = element('game');
  const button = element('start');
  const progress = element('progress');

  let program = null; // WebAssembly.Module
  let memory = null; // of the program; every race uses the same
  const files = new Map(); // packed by gzip, by the names the game knows

  class Reason extends Error {} // a failure to be shown as it is

  function setState(state, title, text) {
    document.documentElement.dataset.state = state;
    if (title !== undefined) {
      element('curtain-title').textContent = title;
      element('curtain-text').textContent = text;
    }
    button.disabled = !(state === 'ready' || state === 'ended' || state === 'failed');
    canvas.tabIndex = state === 'starting' || state === 'racing' ? 0 : -1;
    showStatus();
    document.dispatchEvent(new Event('statechange'));
  }

  function showStatus() {
    const state = document.documentElement.dataset.state;
    const touch = window.tarvik.touch.matches;
    const texts = {
      loading: '',
      ready: touch ? 'In landscape the picture is between your thumbs.' : 'Enter starts the race.',
      starting: '',
      racing:
        document.activeElement === canvas
          ? 'Escape ends the race.'
          : 'The keys go elsewhere. Click the picture to drive on.',
      ended: touch ? '' : 'Enter starts the next race.',
      failed: '',
    };
    element('status').textContent = texts[state];
  }

  // The next try starts from a fresh page: a failure may have left anything behind.
  function fail(error) {
    console.error(error);
    program = null;
    let text = `The game stopped: ${error.message || error}`;
    if (error instanceof Reason) {
      text = error.message;
    } else if (error instanceof RangeError) {
      text = 'The browser does not give the game the 350 MB of memory it needs. Close other pages and try again.';
    }
    button.textContent = 'Try again';
    setState('failed', 'That did not work', text);
    button.focus();
  }

  // --- Loading -----------------------------------------------------------------------------------

  const loaded = { bytes: 0, of: 0 };

  function countBytes() {
    return new TransformStream({
      transform(chunk, controller) {
        loaded.bytes += chunk.length;
        progress.value = loaded.of > 0 ? Math.min(1, loaded.bytes / loaded.of) : 0;
        controller.enqueue(chunk);
      },
    });
  }

  async function request(name) {
    const answer = await fetch(name).catch(() => null);
    if (!answer) {
      throw new Reason(`${name} could not be loaded: the server does not answer.`);
    }
    if (!answer.ok) {
      throw new Reason(`${name} could not be loaded: the server says ${answer.status}.`);
    }
    loaded.of += Number(answer.headers.get('Content-Length')) || 0;
    return answer;
  }

  async function bytesOf(stream) {
    return new Uint8Array(await new Response(stream).arrayBuffer());
  }

  // Some servers declare .gz files as merely encoded, so the browser unpacks them: 100 MB, which
  // are packed again as they come.
  async function packedBytes(stream) {
    const [look, keep] = stream.tee();
    const reader = look.getReader();
    const { value: first } = await reader.read();
    reader.cancel();
    const packed = first && first[0] === 0x1f && first[1] === 0x8b;
    return bytesOf(packed ? keep : keep.pipeThrough(new CompressionStream('gzip')));
  }

  async function load() {
    if (location.protocol === 'file:') {
      throw new Reason('Browsers load games from a web server only. In a copy of the source, ./play --web starts one.');
    }
    if (typeof WebAssembly !== 'object') {
      throw new Reason('The game needs WebAssembly, which this browser lacks or has switched off.');
    }
    if (typeof DecompressionStream !== 'function') {
      throw new Reason('This browser is too old for the game. One from 2023 or later will do.');
    }
    if (typeof createTarvik !== 'function') {
      throw new Reason('tarvik.js could not be loaded.');
    }
    const [wasm, ...data] = await Promise.all(['tarvik.wasm', ...DATA.map((name) => `${name}.gz`)].map(request));
    const [module, ...packed] = await Promise.all([
      bytesOf(wasm.body.pipeThrough(countBytes())).then((bytes) => WebAssembly.compile(bytes)),
      ...data.map((answer) => packedBytes(answer.body.pipeThrough(countBytes()))),
    ]);
    program = module;
    DATA.forEach((name, i) => files.set(name, packed[i]));
    progress.value = 1;
    setState('ready', 'Ready', 'Press A for the first gear, hold ↑, and drive up through the gate.');
    button.focus();
  }

  // --- A race ------------------------------------------------------------------------------------

  // The game never undoes what it has allocated and set, so each race is a new program. It gets the
  // same memory, 350 MB, wiped: an old one would be freed only when the browser likes.
  async function race() {
    if (memory) {
      new Uint8Array(memory.buffer).fill(0);
    }
    let lastWords = '';
    const game = await createTarvik({
      canvas,
      files,
      wasmMemory: memory || undefined,
      instantiateWasm(imports, done) {
        memory = imports.env.memory;
        WebAssembly.instantiate(program, imports).then(done, fail);
        return {};
      },
      print: (line) => console.log(line),
      printErr: (line) => {
        lastWords = line;
        console.warn(line);
      },
      frameShown() {
        window.tarvik.frames += 1;
        if (document.documentElement.dataset.state === 'starting') {
          setState('racing');
        }
      },
      lapCompleted: (track, frames) => window.tarvik.laps.push({ track, frames }),
    });
    const code = await game.ccall('main', 'number', ['number', 'number'], [0, 0], { async: true });
    if (code !== 0) {
      throw new Reason(lastWords);
    }
  }

  function result() {
    const seconds = Math.round(window.tarvik.frames / 60);
    const minutes = Math.floor(seconds / 60);
    const time = minutes > 0 ? `${minutes} min ${seconds % 60} s` : `${seconds} s`;
    const tracks = [1, 2].map((track) => {
      const laps = window.tarvik.laps.filter((lap) => lap.track === track).map((lap) => lap.frames);
      return { track, laps: laps.length, best: Math.min(...laps) };
    });
    const lines = tracks
      .filter(({ laps }) => laps > 0)
      .map(({ track, laps, best }) => {
        const completed = laps === 1 ? '1 lap' : `${laps} laps`;
        return `Track ${track}: ${completed} completed, best lap ${best} frames (${(best / 60).toFixed(2)} s).`;
      });
    return [`You drove for ${time}.`, ...(lines.length > 0 ? lines : ['No lap completed.'])].join('\n');
  }

  async function start() {
    if (!program) {
      location.reload();
      return;
    }
    window.tarvik.frames = 0;
    window.tarvik.laps = [];
    progress.removeAttribute('value');
    setState('starting', 'Here we go', 'The track is being unpacked.');
    canvas.focus({ preventScroll: true });
    try {
      await race();
      button.textContent = 'Race again';
      setState('ended', 'The race is over', result());
      button.focus();
    } catch (error) {
      fail(error);
    }
  }

  canvas.addEventListener('focus', showStatus);
  canvas.addEventListener('blur', showStatus);
  button.addEventListener('click', start);
  load().catch(fail);
})();
