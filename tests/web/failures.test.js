// What the player is told when something is missing.
import { after, before, test } from 'node:test';
import { strict as assert } from 'node:assert';
import * as web from './browser.js';

before(web.startBrowser);
after(web.stopBrowser);

async function assertTold(page, words) {
  await web.inState(page, 'failed');
  const text = page.locator('#curtain-text');
  await text.waitFor({ state: 'visible' });
  assert.match(await text.textContent(), words);
  assert.equal(await page.evaluate(() => document.activeElement.id), 'start');
}

test('no WebAssembly, or no memory for it', async () => {
  const without = await web.openEmpty();
  await without.addInitScript(() => delete window.WebAssembly);
  await without.goto(web.address);
  await assertTold(without, /WebAssembly/);
  await without.context().close();

  const small = await web.openEmpty();
  await small.addInitScript(() => {
    WebAssembly.Memory = function () {
      throw new RangeError('WebAssembly.Memory(): could not allocate memory');
    };
  });
  await small.goto(web.address);
  await web.inState(small, 'ready');
  await small.keyboard.press('Enter');
  await assertTold(small, /350 MB of memory/);
  await small.context().close();
});

test('a file that is missing or damaged, and trying again', async () => {
  for (const name of ['tarvik.wasm', 'tarvik.js', 'data/race2.map.gz', 'data/graphics.dat.gz']) {
    const page = await web.openEmpty();
    await page.route(`**/${name}`, (route) => route.fulfill({ status: 404, body: 'not here' }));
    await page.goto(web.address);
    await assertTold(page, new RegExp(`${name} could not be loaded`));
    await page.unroute(`**/${name}`);
    await page.keyboard.press('Enter');
    await web.inState(page, 'ready');
    await page.context().close();
  }

  const page = await web.openEmpty();
  await page.route('**/tarvik.wasm', (route) => route.fulfill({ body: 'no program' }));
  await page.goto(web.address);
  await assertTold(page, /The game stopped/);
  await page.context().close();
});

test('a map or an archive that ends early is read as far as it goes', async () => {
  const page = await web.openEmpty();
  await page.route('**/*.gz', async (route) => {
    const body = await (await route.fetch()).body();
    await route.fulfill({ body: body.subarray(0, body.length / 2) });
  });
  await page.goto(web.address);
  await web.inState(page, 'ready');
  await web.startRace(page);
  await web.picturesLater(page, 10);
  await web.endRace(page);
  await web.close(page);
});
