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
async function answerWith(page, answer) {
  await page.setRequestInterception(true);
  page.on('request', async (request) => {
    const given = await answer(request.url().slice(web.address.length));
    await (given ? request.respond(given) : request.continue());
  });
}

test('no WebAssembly, or no memory for it', async (t) => {
  const without = await web.openPage(t);
  await without.evaluateOnNewDocument(() => delete window.WebAssembly);
  await without.goto(web.address);
  await assertTold(without, /WebAssembly/);

  const small = await web.openPage(t);
  await small.evaluateOnNewDocument(() => {
    WebAssembly.Memory = function () {
      throw new RangeError('WebAssembly.Memory(): could not allocate memory');
    };
  });
  await small.goto(web.address);
  await web.inState(small, 'ready');
  await small.keyboard.press('Enter');
  await assertTold(small, /350 MB of memory/);
});

for (const [missing, words] of [
  ['tarvik.wasm', /tarvik.wasm could not be loaded/],
  ['tarvik.js', /tarvik.js could not be loaded/],
  ['data/race2.map.gz', /race2.map.gz could not be loaded/],
]) {
  test(`${missing} is missing or not what it should be, and comes back`, async (t) => {
    const page = await web.openPage(t);
    let answer = { status: 404, body: 'not here' };
    await answerWith(page, (name) => (name === missing ? answer : null));
    await page.goto(web.address);
    await assertTold(page, words);
    if (missing === 'tarvik.wasm') {
      answer = { body: 'no program' };
      await page.keyboard.press('Enter');
      await page.waitForFunction(() => /The game stopped/.test(document.getElementById('curtain-text').textContent));
      await assertTold(page, /The game stopped/);
    }
    answer = null;
    await page.keyboard.press('Enter');
    await web.inState(page, 'ready');
  });
}

test('a map or an archive that ends early is read as far as it goes', async (t) => {
  const page = await web.openPage(t);
  await answerWith(page, async (name) => {
    if (name.endsWith('.gz')) {
      const body = await readFile(`${web.SITE}/${name}`);
      return { body: body.subarray(0, body.length / 2) };
    }
    return null;
  });
  await page.goto(web.address);
  await web.inState(page, 'ready');
  await web.startRace(page);
  await web.picturesLater(page, 10);
  await web.endRace(page);
});
