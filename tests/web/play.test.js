// Driving in browsers: the same game, frame by frame, at its pace, within its memory.
import { describe, test } from 'node:test';
import { strict as assert } from 'node:assert';
import { readFileSync } from 'node:fs';
import * as web from './browser.js';

for (const name of ['chrome', 'firefox']) {
  describe(name, () => {
    web.inBrowser(name);

    test('a race with real keys matches the one without a browser, pixel by pixel', async (t) => {
      const page = await web.openGame(t);
      await web.startRace(page);
      assert.equal(await web.focused(page), 'game');
      const standing = await web.assertSameAsReplay(page);
      assert.equal(standing.gear, 0);

      await page.keyboard.press('KeyA');
      await page.keyboard.down('ArrowUp');
      await web.framesLater(page, 240);
      const driving = await web.assertSameAsReplay(page);
      assert.equal(driving.gear, 1);
      assert.ok(driving.speed > 0.1 && driving.y < 2400, 'the car has driven up through the gate');
      assert.ok(driving.cycle > 1, 'a lap is being timed');

      // The focus moves away with the key held: nothing tells the game, and the car drives on.
      await page.click('.rules');
      await page.keyboard.up('ArrowUp');
      await page.keyboard.press('ArrowDown');
      await web.framesLater(page, 30);
      const alone = await web.assertSameAsReplay(page);
      assert.ok(alone.speed >= driving.speed, 'the throttle is still open');
      assert.match(await web.textOf(page, '#status'), /go elsewhere/);
      await page.focus('#game');

      for (const [key, race] of [['BracketRight', 2], ['BracketLeft', 1]]) {
        await page.keyboard.press(key);
        await web.framesLater(page, 3);
        const fresh = await web.assertSameAsReplay(page);
        assert.deepEqual({ race: fresh.race, cycle: fresh.cycle }, { race, cycle: 0 });
      }
      await web.endRace(page);
      assert.equal(await web.focused(page), 'start');
    });
  });
}

describe('chrome', () => {
  web.inBrowser();

  test('races one after another take no more memory than the first', async (t) => {
    const page = await web.openGame(t);
    const peaks = []; // MB
    for (let race = 1; race <= 4; ++race) {
      await web.startRace(page);
      await page.keyboard.press('BracketRight');
      await web.framesLater(page, 20);
      await web.endRace(page);
      assert.equal(await web.textOf(page, '#start'), 'Race again');
      peaks.push(await peakMemory());
    }
    t.diagnostic(`the most memory until after each race: ${peaks.join(', ')} MB`);
    // The second is a measure: the first may end before the browser has taken all that a race needs.
    assert.ok(peaks[1] < 700 && peaks[3] < peaks[1] + 66);
  });

  for (const hertz of [24, 60, 75, 144]) {
    test(`60 frames a second on a display of ${hertz} Hz`, async (t) => {
      const page = await web.openGame(t, { prepare: (empty) => empty.evaluateOnNewDocument(simulateDisplay, hertz) });
      await web.startRace(page);
      const read = () => page.evaluate(() => ({ shown: window.tarvik.frames, now: performance.now() }));
      const start = await read();
      await web.framesLater(page, 300);
      const end = await read();
      const rate = ((end.shown - start.shown) * 1000) / (end.now - start.now);
      assert.ok(rate > 58.5 && rate < 60.5, `${rate} frames a second`);

      await page.keyboard.press('KeyA'); // the game waits 300 ms for the gears, and the page goes on
      await web.framesLater(page, 60);
      const later = await read();
      const wait = later.now - end.now - ((later.shown - end.shown) * 1000) / rate;
      assert.ok(wait > 200 && wait < 400, `a wait of ${wait} ms`);
      await web.endRace(page);
    });
  }
});

/// In the page: a clock of its own, which goes on from one timer or turn of the display to the next
/// however busy the machine is.
function simulateDisplay(hertz) {
  const turn = 1000 / hertz;
  const waiting = new Map();
  let now = 0;
  let last = 0;
  const call = (callback, at) => waiting.set((last += 1), { callback, at }) && last;
  performance.now = () => now;
  window.requestAnimationFrame = (callback) => call(callback, turn * (Math.floor(now / turn + 1e-6) + 1));
  window.setTimeout = (callback, wait = 0, ...given) => call(() => callback(...given), now + wait);
  window.cancelAnimationFrame = window.clearTimeout = (number) => waiting.delete(number);
  const { port1, port2 } = new MessageChannel();
  port1.onmessage = () => {
    const [next] = [...waiting].sort(([, one], [, other]) => one.at - other.at);
    if (next) {
      waiting.delete(next[0]);
      now = Math.max(now, next[1].at);
      next[1].callback(now);
    }
    port2.postMessage(null);
  };
  port2.postMessage(null);
}

/// The most memory that a process with a page ever had, in MB.
async function peakMemory() {
  const devtools = await web.browser.target().createCDPSession();
  const { processInfo } = await devtools.send('SystemInfo.getProcessInfo');
  const renderers = processInfo.filter(({ type }) => type === 'renderer');
  const statuses = renderers.map(({ id }) => readFileSync(`/proc/${id}/status`, 'utf8'));
  return Math.max(...statuses.map((status) => Math.round(/VmHWM:\s+(\d+)/.exec(status)[1] / 1024)));
}
