// A game controller in the browser, through a Gamepad API whose buttons the test presses.
import { test } from 'node:test';
import { strict as assert } from 'node:assert';
import * as web from './browser.js';

web.inBrowser();

/// In the page: a controller that can be plugged in, pressed and steered.
function stubController() {
  const buttons = Array.from({ length: 17 }, () => ({ value: 0, pressed: false }));
  const axes = [0, 0, 0, 0];
  const pad = { id: 'stub', index: 1, connected: true, mapping: 'standard', timestamp: 0, axes, buttons };
  let pads = [null, null];
  navigator.getGamepads = () => pads;
  window.plug = (plugged) => {
    pads = plugged ? [null, pad] : [null];
    window.dispatchEvent(new Event(plugged ? 'gamepadconnected' : 'gamepaddisconnected'));
  };
  window.steer = (value) => (axes[0] = value);
  window.press = (number, value) => (buttons[number] = { value, pressed: value > 0.5 });
}

const [FACE_LEFT, SHOULDER, TRIGGER, BACK, START] = [2, 5, 7, 8, 9]; // the browser's numbers

// What is done to the controller, which keys that means to the game, and what it causes.
const STEPS = [
  ['steer(-0.9)', ['1,ArrowLeft']],
  ['steer(-0.4)', []],
  ['steer(0.2)', ['0,ArrowLeft'], ({ heading }) => heading >= 180 + 8 * 1.2],
  [`press(${SHOULDER}, 1)`, ['1,KeyA', '0,KeyA']],
  [`press(${SHOULDER}, 0)`, []],
  [`press(${TRIGGER}, 0.8)`, ['1,ArrowUp'], ({ gear, speed }) => gear === 1 && speed > 0.1],
  ['plug(false)', ['0,ArrowUp']],
  ['plug(true)', ['1,ArrowUp']],
  [`press(${FACE_LEFT}, 1)`, ['1,BracketRight', '0,BracketRight'], ({ race }) => race === 2],
  [`press(${BACK}, 1)`, ['1,BracketLeft', '0,BracketLeft'], ({ race }) => race === 1],
];

test('a controller starts the race, drives, comes and goes, changes tracks, and ends the race', async (t) => {
  const page = await web.openGame(t, { prepare: (empty) => empty.evaluateOnNewDocument(stubController) });
  await page.evaluate(() => window.plug(true));
  const pressStart = (value) =>
    page.evaluate((button, given) => {
      window.press(button, given);
      return new Promise((done) => requestAnimationFrame(() => requestAnimationFrame(done)));
    }, START, value);
  await pressStart(1);
  await pressStart(0);
  await web.inState(page, 'racing');
  for (const [action, keys, isRight] of STEPS) {
    await page.evaluate((what, same) => {
      window.seenKeys.push(...same.map((key) => `${window.tarvik.frames + 1},${key}`)); // from the next frame on
      window.eval(what);
    }, action, keys);
    await web.framesLater(page, 4);
    if (isRight) {
      assert.ok(isRight(await web.assertSameAsReplay(page)), action);
    }
  }
  await pressStart(1);
  await web.inState(page, 'ended');
  await pressStart(0);
  assert.equal(await page.$eval('html', (html) => html.dataset.state), 'ended', 'what ended one race starts no other');
});
