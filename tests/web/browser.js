// What the tests in the browser share: server, Chromium, the open page, its pictures, and the same
// race in the game without a browser.
import { execFile, spawn } from 'node:child_process';
import { readFile } from 'node:fs/promises';
import { fileURLToPath } from 'node:url';
import { strict as assert } from 'node:assert';
import { chromium } from 'playwright-core';

const ROOT = fileURLToPath(new URL('../../', import.meta.url));
const REPLAY = `${ROOT}build/test/bin/tarvik-replay`;
const DATA = `${ROOT}build/release/bin/data`;
const SITE = `${ROOT}build/web/site`;

export const WIDTH = 640;
export const HEIGHT = 480;
const OPENING = 10_000; // ms from the address to the button, and from there to the first picture
const PATIENCE = 60_000; // ms for what only a busy machine makes slow

let server;
let browser;
export let address;

/// Serves the page as ./play --web does and starts Chromium, whose sandbox is for pages of
/// strangers and cannot be had by root or in most containers.
export async function startBrowser() {
  server = spawn(`${ROOT}tools/serve-web`, [SITE], { stdio: ['ignore', 'pipe', 'inherit'] });
  address = await new Promise((resolve, reject) => {
    server.on('exit', () => reject(new Error('the server has ended')));
    server.stdout.once('data', (text) => resolve(/http:\S+/.exec(text)[0]));
  });
  browser = await chromium.launch({
    executablePath: process.env.CHROMIUM ?? '/usr/bin/chromium',
    args: ['--force-color-profile=srgb'],
  });
}

export async function stopBrowser() {
  await browser?.close();
  server?.kill();
}

/// Opens an empty page in a profile of its own.
export async function openEmpty(options = {}) {
  const context = await browser.newContext({ viewport: { width: 1280, height: 720 }, ...options });
  const page = await context.newPage();
  page.setDefaultTimeout(PATIENCE);
  page.faults = [];
  page.on('pageerror', (error) => page.faults.push(`error: ${error.message}`));
  page.on('requestfailed', (request) => page.faults.push(`not loaded: ${request.url()}`));
  page.on('response', (answer) => answer.status() >= 400 && page.faults.push(`${answer.status()}: ${answer.url()}`));
  page.on('console', (line) => {
    if (['error', 'warning', 'assert'].includes(line.type())) {
      page.faults.push(`console: ${line.text()}`);
    }
  });
  await page.addInitScript(watchKeys);
  return page;
}

/// Opens the game's page; it is ready within the time that a player is promised.
export async function openGame(options) {
  const page = await openEmpty(options);
  await page.goto(address);
  await inState(page, 'ready', OPENING);
  return page;
}

/// Closes a page in which nothing must have gone wrong.
export async function close(page) {
  await page.context().close();
  assert.deepEqual(page.faults, []);
}

export async function inState(page, state, timeout = PATIENCE) {
  await page.locator(`html[data-state="${state}"]`).waitFor({ state: 'attached', timeout });
}

export async function startRace(page) {
  await page.keyboard.press('Enter'); // the button has the focus
  await inState(page, 'racing', OPENING);
  await picturesLater(page, 2);
}

// The game looks whether Escape is down, once a frame: a tap between two looks goes unnoticed.
export async function endRace(page) {
  await page.keyboard.down('Escape');
  await inState(page, 'ended');
  await page.keyboard.up('Escape');
}

export async function picturesLater(page, count) {
  const goal = count + (await page.evaluate(() => window.tarvik.pictures));
  await page.waitForFunction((pictures) => window.tarvik.pictures >= pictures, goal);
}

/// In the page: notes which key the game got after how many pictures.
function watchKeys() {
  window.seenKeys = [];
  const note = (event) => {
    if (document.activeElement?.id === 'game' && event.key !== 'Enter') {
      window.seenKeys.push([window.tarvik.pictures + 1, event.keyCode, event.type === 'keydown' ? 1 : 0]);
    }
  };
  window.addEventListener('keydown', note, true);
  window.addEventListener('keyup', note, true);
  window.addEventListener('click', (event) => event.target.id === 'start' && (window.seenKeys = []), true);
}

/// What the canvas holds now, the number of that picture in the race, and the keys up to it.
export async function canvasOf(page) {
  const { url, ...rest } = await page.evaluate(async () => {
    const canvas = document.getElementById('game');
    const copy = new OffscreenCanvas(canvas.width, canvas.height).getContext('2d', { willReadFrequently: true });
    copy.drawImage(canvas, 0, 0);
    const { data } = copy.getImageData(0, 0, canvas.width, canvas.height);
    const found = { number: window.tarvik.pictures, keys: [...window.seenKeys] };
    const reader = new FileReader();
    await new Promise((done) => ((reader.onload = done), reader.readAsDataURL(new Blob([data]))));
    return { ...found, url: reader.result };
  });
  return { ...rest, pixels: Buffer.from(url.slice(url.indexOf(',') + 1), 'base64') };
}

/// The picture with that number and what the game knows then, from the same keys on this system.
export function replay({ number, keys }) {
  const wanted = [DATA, String(number), ...keys.map((key) => key.join(','))];
  return new Promise((resolve, reject) => {
    execFile(REPLAY, wanted, { encoding: 'buffer', maxBuffer: 1e8 }, (error, pixels, state) =>
      error ? reject(error) : resolve({ pixels, state: JSON.parse(state.toString()) }),
    );
  });
}

/// Holds the canvas against the same race without a browser, pixel by pixel; returns what the game
/// knows.
export async function assertSameAsReplay(page) {
  const seen = await canvasOf(page);
  const expected = await replay(seen);
  assertSamePixels(seen.pixels, expected.pixels, `picture ${seen.number} after keys ${seen.keys.join(' ')}`);
  return { ...expected.state, pixels: seen.pixels };
}

export function assertSamePixels(seen, expected, what) {
  assert.equal(seen.length, expected.length, `size of ${what}`);
  let different = 0;
  for (let at = 0; at < seen.length; at += 4) {
    different += seen.readUInt32LE(at) === expected.readUInt32LE(at) ? 0 : 1;
  }
  assert.equal(different, 0, `different pixels in ${what}`);
}

/// A PNG as bytes of red, green, blue, alpha; Chromium unpacks it.
export async function pixelsOf(png) {
  const page = await openEmpty();
  const url = await page.evaluate(async (source) => {
    const image = await createImageBitmap(await (await fetch(source)).blob(), { colorSpaceConversion: 'none' });
    const copy = new OffscreenCanvas(image.width, image.height).getContext('2d', { willReadFrequently: true });
    copy.drawImage(image, 0, 0);
    const reader = new FileReader();
    const { data } = copy.getImageData(0, 0, image.width, image.height);
    await new Promise((done) => ((reader.onload = done), reader.readAsDataURL(new Blob([data]))));
    return reader.result;
  }, `data:image/png;base64,${png.toString('base64')}`);
  await page.context().close();
  return Buffer.from(url.slice(url.indexOf(',') + 1), 'base64');
}

/// The canvas on the screen: its pixels, its size in pixels of the screen, and how many of them one
/// of the game's blocks of two by two is wide.
export async function screenOf(page) {
  const clip = await page.locator('#game').boundingBox();
  const size = { width: clip.width, height: clip.height };
  return { pixels: await pixelsOf(await page.screenshot({ clip })), size, block: (2 * size.width) / WIDTH };
}

/// Memory of the process that the page is in, bytes: now, after what is no longer used has gone, and
/// the most it ever was.
export async function memoryOf(page) {
  const own = await page.context().newCDPSession(page);
  await own.send('HeapProfiler.collectGarbage');
  await own.detach();
  const session = await browser.newBrowserCDPSession();
  const { processInfo } = await session.send('SystemInfo.getProcessInfo');
  await session.detach();
  const memories = await Promise.all(
    processInfo
      .filter(({ type }) => type === 'renderer')
      .map(async ({ id }) => {
        const status = await readFile(`/proc/${id}/status`, 'utf8');
        const bytes = (name) => 1024 * Number(new RegExp(`${name}:\\s+(\\d+)`).exec(status)[1]);
        return { now: bytes('VmRSS'), most: bytes('VmHWM') };
      }),
  );
  return memories.reduce((largest, each) => (each.now > largest.now ? each : largest));
}
