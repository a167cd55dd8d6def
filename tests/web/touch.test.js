// On a phone or tablet: driving with the thumbs on both sides of the picture.
import { test } from 'node:test';
import { strict as assert } from 'node:assert';
import * as web from './browser.js';

web.inBrowser();

const DRIVING = ['ArrowUp', 'ArrowDown', 'ArrowLeft', 'ArrowRight', 'KeyA', 'KeyZ'];
const OTHERS = ['Digit1', 'Digit2', 'Digit3', 'BracketLeft', 'BracketRight', 'F1', 'F2', 'Escape'];
const PHONE = { width: 844, height: 390, scale: 3, touch: true };

const SCREENS = [
  PHONE,
  { width: 390, height: 844, scale: 3, touch: true },
  { width: 568, height: 320, scale: 2, touch: true },
  { width: 1180, height: 820, scale: 2, touch: true },
];

/// Where a finger finds a button.
const on = async (page, code) => (await page.$(`[data-code="${code}"]`)).clickablePoint();

/// Sends events about fingers, told apart by numbers: ('Start', 1, { x, y }) and so on.
async function fingersOf(page) {
  const cdp = await page.createCDPSession();
  return (what, id, place) =>
    cdp.send('Input.dispatchTouchEvent', { type: `touch${what}`, touchPoints: place ? [{ id, ...place }] : [] });
}

/// The keys that the game has got since the last call.
const keysOf = (page) => page.evaluate(() => window.seenKeys.splice(0).map((key) => key.replace(/^\d+,/, '')));

for (const screen of SCREENS) {
  test(`${screen.width} by ${screen.height}: every button in reach of a thumb, beside a whole picture`, async (t) => {
    const page = await web.openGame(t, screen);
    await web.startRace(page);
    const boxes = await page.evaluate(() => {
      const elements = [...document.querySelectorAll('#game, [data-code]')];
      const entryOf = (each) => [each.dataset.code ?? 'picture', each.getBoundingClientRect().toJSON()];
      return Object.fromEntries(elements.map(entryOf));
    });
    assert.deepEqual(Object.keys(boxes).sort(), ['picture', ...DRIVING, ...OTHERS].sort());
    const block = (boxes.picture.width * screen.scale) / 320;
    assert.ok(Math.abs(block - Math.round(block)) < 0.001, `${block} screen pixels for one of the game`);
    for (const [code, box] of Object.entries(boxes)) {
      assert.ok(box.left >= 0 && box.top >= 0 && box.right <= screen.width && box.bottom <= screen.height + 1, code);
      const [least, lowest] = DRIVING.includes(code) ? [50, 70] : [32, 40];
      assert.ok(box.width >= least && box.height >= lowest, `${code} is ${box.width} by ${box.height}`);
      for (const [other, { left, right, top, bottom }] of Object.entries(boxes)) {
        const apart = left >= box.right || right <= box.left || top >= box.bottom || bottom <= box.top;
        assert.ok(other === code || apart, `${code} is on ${other}`);
      }
    }
  });
}

test('a lap with thumbs, from the start to the end', async (t) => {
  const page = await web.openGame(t, PHONE);
  await page.tap('#start');
  await web.inState(page, 'racing');
  await page.tap('[data-code="KeyA"]');
  await page.tap('[data-code="ArrowUp"]');
  await web.framesLater(page, 3);

  // The car rolls on by itself. Near the posts it is to be so slow that it takes longer from one to
  // the other, 16 cells, than a lap has to last.
  const finger = await fingersOf(page);
  let rolling = await web.assertSameAsReplay(page);
  const near = rolling.frame + (rolling.y - 2440) / rolling.speed;
  await page.waitForFunction((frame) => window.tarvik.frames >= frame, {}, near);
  for (let brakings = 0; rolling.speed > 0.05; ++brakings) {
    assert.ok(brakings < 100, 'the brake slows the car');
    await finger('Start', 1, await on(page, 'ArrowDown'));
    await web.framesLater(page, 12);
    await finger('Cancel');
    await web.framesLater(page, 2);
    rolling = await web.assertSameAsReplay(page);
  }
  assert.equal(rolling.gear, 1);
  await page.waitForFunction(() => window.tarvik.laps.length === 1);
  await page.tap('[data-code="Escape"]');
  await web.inState(page, 'ended');
  assert.match(
    await web.textOf(page, '#curtain-text'),
    /^You drove for \d+ s\.\nTrack 1: 1 lap completed, best lap 301 frames \(5\.02 s\)\.$/,
  );

  await web.startRace(page); // the next race knows nothing of it
  await web.endRace(page);
  assert.match(await web.textOf(page, '#curtain-text'), /No lap completed/);
});

test('thumbs hold, slide off and slide on, and the page stays where it is', async (t) => {
  const page = await web.openGame(t, PHONE);
  await web.startRace(page);

  const finger = await fingersOf(page);
  const [left, right, up, gear] = await Promise.all(
    ['ArrowLeft', 'ArrowRight', 'ArrowUp', 'KeyA'].map((code) => on(page, code)),
  );
  const MIDDLE = { x: 422, y: 195 };
  for (const [what, keys, ...event] of [
    ['throttle', ['1,ArrowUp'], 'Start', 1, up],
    ['steering at once', ['1,ArrowLeft'], 'Start', 2, left],
    ['over to the other arrow', ['0,ArrowLeft', '1,ArrowRight'], 'Move', 2, right],
    ['off the buttons', ['0,ArrowRight'], 'Move', 2, MIDDLE],
    ['back on them', ['1,ArrowLeft'], 'Move', 2, left],
    ['up', ['0,ArrowLeft'], 'End', 2, left],
    ['a second finger on the same key', [], 'Start', 3, up],
    ['one of the two is lifted', [], 'End', 1, up],
    ['the system takes the other', ['0,ArrowUp'], 'Cancel'],
    ['gear', ['1,KeyA'], 'Start', 4, gear],
    ['off a gear is not steering', ['0,KeyA'], 'Move', 4, left],
    ['lifted there', [], 'End', 4, left],
  ]) {
    await finger(...event);
    assert.deepEqual(await keysOf(page), keys, what);
  }

  // Two fingers apart and up the screen, then what opens menus: no zoom, no scrolling, no menu.
  await page.evaluate(() => {
    window.menus = 0;
    document.addEventListener('contextmenu', (event) => (window.menus += event.defaultPrevented ? 0 : 1));
  });
  await finger('Start', 1, { x: 400, y: 300 });
  await finger('Start', 2, { x: 440, y: 300 });
  for (let way = 20; way <= 160; way += 20) {
    await finger('Move', 1, { x: 400 - way, y: 300 - way });
    await finger('Move', 2, { x: 440 + way, y: 300 - way });
  }
  await finger('Cancel');
  assert.deepEqual(await page.evaluate(() => [visualViewport.scale, scrollY]), [1, 0]);
  await page.mouse.click(MIDDLE.x, MIDDLE.y, { button: 'right', clickCount: 2 });
  assert.deepEqual(await page.evaluate(() => [window.menus, String(getSelection())]), [0, '']);
  assert.equal(await web.focused(page), 'game');
});
