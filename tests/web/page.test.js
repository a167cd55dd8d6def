// What the page looks like and how it takes keys, before, in and after a race.
import { createRequire } from 'node:module';
import { test } from 'node:test';
import { strict as assert } from 'node:assert';
import * as web from './browser.js';

web.inBrowser();

// How many screen pixels a pixel of the game is wide: in the page, and in full screen.
const SCREENS = [
  { width: 1280, height: 720, inPage: 2, full: 3 },
  { width: 1366, height: 768, inPage: 2, full: 3 },
  { width: 1920, height: 1080, inPage: 4, full: 4 },
  { width: 3840, height: 2160, inPage: 8, full: 9 },
  { width: 1280, height: 720, scale: 1.75, inPage: 4, full: 5 },
];

for (const { inPage, full, ...screen } of SCREENS) {
  const { width, height, scale = 1 } = screen;
  test(`${width} by ${height} at scale ${scale}: all in view, each pixel of the game a crisp square`, async (t) => {
    const page = await web.openGame(t, screen);
    assert.ok((await page.evaluate(() => document.documentElement.scrollWidth)) <= width, 'no scrolling sideways');
    for (const part of ['#start', '#game', '#screen + .below .full-screen']) {
      assert.ok(await (await page.$(part)).isIntersectingViewport({ threshold: 1 }), part);
    }
    await web.startRace(page);
    await assertCrisp(page, inPage);

    await page.click('.below .full-screen');
    await page.waitForSelector('html[data-filled] :fullscreen');
    await assertCrisp(page, full, true);
    await assertPointerFollows(page);
    assert.equal(await web.focused(page), 'game');
    assert.equal(await page.$eval('.pad', (pad) => pad.checkVisibility()), false, 'touch buttons beside a mouse');
    await page.evaluate(() => document.exitFullscreen());
    await page.waitForFunction(() => !document.fullscreenElement);
    await web.framesLater(page, 2);
    await assertCrisp(page, inPage);
    await web.endRace(page);
  });
}

/// Compares the screen with the canvas enlarged by whole blocks: where the picture is or, when that
/// is alone in the middle of a black screen, all of it.
async function assertCrisp(page, block, alone = false) {
  const png = await page.screenshot({ encoding: 'base64' });
  const compare = async (source, size, whole) => {
    const canvas = document.getElementById('game');
    const shot = await createImageBitmap(await (await fetch(source)).blob(), { colorSpaceConversion: 'none' });
    const [width, height] = [320 * size, 240 * size];
    const { x, y } = canvas.getBoundingClientRect();
    const middle = [(shot.width - width) / 2, (shot.height - height) / 2];
    const place = whole ? middle : [x, y].map((at) => Math.round(at * devicePixelRatio));
    const pixelsOf = (...drawn) => {
      const copy = new OffscreenCanvas(shot.width, shot.height).getContext('2d');
      copy.imageSmoothingEnabled = false;
      copy.fillRect(0, 0, shot.width, shot.height);
      copy.drawImage(...drawn);
      const compared = whole ? [0, 0, shot.width, shot.height] : [...place, width, height];
      return new Uint32Array(copy.getImageData(...compared).data.buffer);
    };
    const seen = pixelsOf(shot, 0, 0);
    return pixelsOf(canvas, ...place, width, height).filter((pixel, at) => pixel !== seen[at]).length;
  };
  const different = await page.evaluate(compare, `data:image/png;base64,${png}`, block, alone);
  assert.equal(different, 0, `different pixels: ${block} for one of the game, ${alone ? 'alone' : 'in the page'}`);
}

/// The game's pointer, in the corner at first, goes to the mouse's place among the canvas's pixels.
async function assertPointerFollows(page) {
  const columnAt = (...place) =>
    page.evaluate((left, top) => {
      const copy = new OffscreenCanvas(2, 20).getContext('2d');
      copy.drawImage(document.getElementById('game'), left, top, 2, 20, 0, 0, 2, 20);
      return Array.from(copy.getImageData(0, 0, 2, 20).data);
    }, ...place);
  const pointer = await columnAt(0, 0);
  const { x, y, width } = await (await page.$('#game')).boundingBox();
  await page.mouse.move(x + (100.5 * width) / 640, y + (60.5 * width) / 640);
  await web.framesLater(page, 3);
  assert.deepEqual(await columnAt(2 * 100, 2 * 60), pointer);
}

test('the game takes its own keys and leaves the browser the others', async (t) => {
  const own = ['ArrowUp', 'ArrowDown', 'ArrowLeft', 'ArrowRight', 'F1', 'F2', 'KeyA', 'BracketLeft', 'Digit1'];
  const others = ['Control+KeyR', 'Control+Digit1', 'F5', 'F11', 'Space', 'PageDown', 'Tab'];
  const page = await web.openGame(t);
  const press = async (keys) => {
    for (const key of keys.split('+')) {
      await page.keyboard.down(key);
    }
    for (const key of keys.split('+').reverse()) {
      await page.keyboard.up(key);
    }
  };
  await web.startRace(page);
  await page.evaluate(() => {
    window.taken = [];
    window.addEventListener('keydown', (event) => event.defaultPrevented && window.taken.push(event.code));
  });
  for (const keys of [...own, ...others]) {
    await press(keys);
  }
  assert.deepEqual(await page.evaluate(() => window.taken), own);
  assert.notEqual(await web.focused(page), 'game', 'Tab leads out');
  await press('Shift+Tab');
  assert.equal(await web.focused(page), 'game', 'and back');
  await web.endRace(page);
});

for (const screen of [{}, { width: 844, height: 390, touch: true }]) {
  test(`readable and usable for everybody: ${screen.touch ? 'fingers' : 'mouse and keys'}`, async (t) => {
    const page = await web.openGame(t, screen);
    await page.addScriptTag({ path: createRequire(import.meta.url).resolve('axe-core') });
    for (const goOn of [() => {}, web.startRace, web.endRace]) {
      await goOn(page);
      for (const value of ['light', 'dark']) {
        await page.emulateMediaFeatures([{ name: 'prefers-color-scheme', value }]);
        const { violations, passes } = await page.evaluate(() => window.axe.run());
        assert.deepEqual(violations.map(({ help, nodes }) => [help, ...nodes.map(({ html }) => html)]), [], value);
        assert.ok(passes.find(({ id }) => id === 'color-contrast').nodes.length > 5, 'there are texts to be read');
      }
    }
  });
}
