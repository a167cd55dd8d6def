// What the page looks like and how it takes keys, before, in and after a race.
import { after, before, test } from 'node:test';
import { strict as assert } from 'node:assert';
import * as web from './browser.js';

before(web.startBrowser);
after(web.stopBrowser);

const SCREENS = [
  { width: 1280, height: 720 },
  { width: 1920, height: 1080 },
  { width: 3840, height: 2160 },
];

for (const viewport of SCREENS) {
  test(`at ${viewport.width} by ${viewport.height}: all in view, each pixel of the game a crisp square`, async () => {
    const page = await web.openGame({ viewport, colorScheme: 'dark' });
    const { width } = await page.evaluate(() => ({ width: document.documentElement.scrollWidth }));
    assert.ok(width <= viewport.width, 'no scrolling sideways');
    for (const part of [page.getByRole('button', { name: 'Start' }), page.locator('#game')]) {
      const box = await part.boundingBox();
      assert.ok(box.x >= 0 && box.y >= 0, 'left or above the window');
      assert.ok(box.x + box.width <= viewport.width && box.y + box.height <= viewport.height, 'right or below it');
    }
    await page.getByRole('button').click();
    await web.inState(page, 'racing');
    await web.picturesLater(page, 2);
    const canvas = (await web.canvasOf(page)).pixels;
    const { pixels, size, block } = await web.screenOf(page);
    assert.ok(Number.isInteger(block) && block >= 2, `${block} screen pixels for one of the game`);
    const enlarged = Buffer.alloc(pixels.length);
    for (let y = 0; y < size.height; ++y) {
      for (let x = 0; x < size.width; ++x) {
        const from = 2 * (Math.floor(y / block) * web.WIDTH + Math.floor(x / block));
        enlarged.writeUInt32LE(canvas.readUInt32LE(4 * from), 4 * (y * size.width + x));
      }
    }
    web.assertSamePixels(pixels, enlarged, 'the picture on the screen');
    await web.endRace(page);
    await web.close(page);
  });
}

test('the game takes its own keys and leaves the browser the others', async () => {
  const page = await web.openGame({ viewport: { width: 900, height: 500 } }); // too low: could scroll
  await web.startRace(page);
  const top = await page.evaluate(() => {
    window.taken = {};
    window.addEventListener('keydown', (event) => (window.taken[event.code] = event.defaultPrevented));
    return window.scrollY;
  });
  const own = ['ArrowUp', 'ArrowDown', 'ArrowLeft', 'ArrowRight', 'F1', 'F2', 'KeyA', 'BracketLeft', 'Digit1'];
  for (const key of [...own, 'Control+KeyR', 'Control+Digit1', 'F5', 'Space', 'PageDown', 'Tab']) {
    if (key === 'PageDown') {
      assert.equal(await page.evaluate(() => window.scrollY), top, 'no key of the game scrolls');
    }
    await page.keyboard.press(key);
    const taken = await page.evaluate((code) => window.taken[code], key.replace(/.*\+/, ''));
    assert.equal(taken, own.includes(key), key);
  }
  assert.notEqual(await page.evaluate(() => document.activeElement.id), 'game', 'Tab leads out');
  await page.keyboard.press('Shift+Tab');
  assert.equal(await page.evaluate(() => document.activeElement.id), 'game', 'and back');
  assert.equal(await page.getByRole('application').count(), 1);
  assert.equal(page.context().pages().length, 1);
  await web.endRace(page);
  await web.close(page);
});

for (const colorScheme of ['light', 'dark']) {
  test(`${colorScheme}: every text can be read`, async () => {
    const page = await web.openGame({ colorScheme });
    await assertReadable(page);
    await web.startRace(page);
    await assertReadable(page);
    await web.endRace(page);
    await assertReadable(page);
    await web.close(page);
  });
}

/// Holds each text's colour against what is behind it on the screen: a contrast of 4.5 at least.
async function assertReadable(page) {
  const texts = await page.evaluate(() => {
    const walker = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
    const found = [];
    while (walker.nextNode()) {
      const range = document.createRange();
      range.selectNodeContents(walker.currentNode);
      const colour = getComputedStyle(walker.currentNode.parentElement).color.match(/\d+/g).map(Number);
      for (const { x, y, width, height } of range.getClientRects()) {
        const inside = x >= 0 && y >= 0 && x + width <= innerWidth && y + height <= innerHeight;
        if (inside && width > 2 && walker.currentNode.data.trim()) {
          found.push({ text: walker.currentNode.data.trim(), colour, x, y, width, height });
        }
      }
    }
    return found;
  });
  assert.ok(texts.length > 30, 'there are texts to be read');
  const without = await page.addStyleTag({ content: '* { color: transparent !important }' });
  const pixels = await web.pixelsOf(await page.screenshot({ animations: 'disabled' }));
  await without.evaluate((style) => style.remove());
  const { width } = page.viewportSize();
  for (const { text, colour, ...box } of texts) {
    const ink = luminance(...colour);
    let contrast = Infinity;
    for (let y = Math.ceil(box.y); y < box.y + box.height - 1; ++y) {
      for (let x = Math.ceil(box.x); x < box.x + box.width - 1; ++x) {
        const behind = luminance(...pixels.subarray(4 * (y * width + x), 4 * (y * width + x) + 3));
        contrast = Math.min(contrast, (Math.max(ink, behind) + 0.05) / (Math.min(ink, behind) + 0.05));
      }
    }
    assert.ok(contrast >= 4.5, `"${text}" has a contrast of ${contrast.toFixed(2)}`);
  }
}

/// Of a colour, as contrasts are reckoned by: 0 for black, 1 for white.
function luminance(...colour) {
  const [red, green, blue] = colour.map((value) =>
    value <= 10 ? value / 255 / 12.92 : ((value / 255 + 0.055) / 1.055) ** 2.4,
  );
  return 0.2126 * red + 0.7152 * green + 0.0722 * blue;
}
