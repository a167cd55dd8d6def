// What the player is told when something is missing.
import { test } from 'node:test';
import { strict as assert } from 'node:assert';
import { readFile } from 'node:fs/promises';
import * as web from './browser.js';

web.inBrowser();

async function assertTold(page, words) {
  await web.inState(page, 'failed');
  await page.waitForSelector('#curtain-text', { visible: true });
  assert.match(await web.textOf(page, '#curtain-text'), words);
  assert.equal(await web.focused(page), 'start');
  page.faults.length = 0; // the browser's console has them too
}

/// Answers requests by `answer`, given the name of the file, where that returns something.
const answering = (answer) => async (page) => {
  await page.setRequestInterception(true);
  page.on('request', async (request) => {
    const given = await answer(request.url().slice(web.address.length));
    await (given ? request.respond(given) : request.continue());
  });
};

test('no WebAssembly, or no memory for it', async (t) => {
  const without = (empty) => empty.evaluateOnNewDocument(() => delete window.WebAssembly);
  await assertTold(await web.openGame(t, { prepare: without, state: 'failed' }), /WebAssembly/);

  const page = await web.openGame(t);
  await page.evaluate(() => {
    WebAssembly.Memory = function () {
      throw new RangeError('WebAssembly.Memory(): could not allocate memory');
    };
  });
  await page.keyboard.press('Enter');
  await assertTold(page, /350 MB of memory/);
});

const MISSING = { status: 404, body: 'not here' };

for (const [name, wrong, words] of [
  ['tarvik.wasm', { body: 'no program' }, /The game stopped/],
  ['tarvik.js', MISSING, /tarvik\.js could not be loaded/],
  ['data/race2.map.gz', MISSING, /race2\.map\.gz could not be loaded: the server says 404/],
]) {
  test(`${name} is missing or not what it should be, and comes back`, async (t) => {
    let answer = wrong;
    const prepare = answering((wanted) => (wanted === name ? answer : null));
    const page = await web.openGame(t, { prepare, state: 'failed' });
    await assertTold(page, words);
    answer = null;
    await page.keyboard.press('Enter');
    await web.inState(page, 'ready');
  });
}

test('a map or an archive that ends early is read as far as it goes', async (t) => {
  const prepare = answering(async (name) => {
    const body = name.endsWith('.gz') && (await readFile(`${web.SITE}/${name}`));
    return body && { body: body.subarray(0, body.length / 2) };
  });
  const page = await web.openGame(t, { prepare });
  await web.startRace(page);
  await web.endRace(page);
});
