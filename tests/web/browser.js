// What the tests of the page share: server, browser, open pages, and the same race in the game
// without a browser.
import { after, before } from 'node:test';
import { strict as assert } from 'node:assert';
import { spawn, spawnSync } from 'node:child_process';
import { createHash } from 'node:crypto';
import { once } from 'node:events';
import { fileURLToPath } from 'node:url';
import puppeteer from 'puppeteer-core';

const ROOT = fileURLToPath(new URL('../../', import.meta.url));
export const SITE = `${ROOT}build/web/site`;
const PATIENCE = 120_000; // ms for what is slow only on a busy machine

// The sandbox is for strangers' pages, and neither root nor most containers can have it.
const BROWSERS = {
  chrome: {
    browser: 'chrome',
    executablePath: process.env.CHROMIUM ?? '/usr/bin/chromium',
    args: ['--no-sandbox', '--force-color-profile=srgb'],
  },
  firefox: { browser: 'firefox', executablePath: process.env.FIREFOX ?? '/usr/bin/firefox-esr' },
};

export let browser;
export let address;

/// Serves the page as ./play --web does, and starts a browser for the tests around the call.
export function inBrowser(name = 'chrome') {
  let server;
  before(async () => {
    server = spawn(`${ROOT}tools/serve-web`, [SITE], { stdio: ['ignore', 'pipe', 'inherit'] });
    const [words] = await once(server.stdout, 'data');
    address = /http:\S+/.exec(words)[0];
    browser = await puppeteer.launch({ ...BROWSERS[name], timeout: PATIENCE, protocolTimeout: PATIENCE });
  });
  after(async () => {
    await browser?.close();
    server.kill();
  });
}

/// The page in a profile of its own, for one test, once it is in a state; `prepare` may change the
/// empty page before. Nothing may go wrong in it but what the test forgives.
export async function openGame(t, { prepare, state = 'ready', ...screen } = {}) {
  const { width = 1280, height = 720, scale = 1, touch = false } = screen;
  const context = await browser.createBrowserContext();
  const page = await context.newPage();
  page.faults = [];
  t.after(async () => {
    await context.close();
    assert.deepEqual(page.faults, []);
  });
  page.setDefaultTimeout(PATIENCE);
  page.on('pageerror', (error) => page.faults.push(`error: ${error.message}`));
  page.on('console', (line) => /error|warn|assert/.test(line.type()) && page.faults.push(line.text(), line.location()));
  await page.setViewport({ width, height, deviceScaleFactor: scale, isMobile: touch, hasTouch: touch });
  await page.evaluateOnNewDocument(noteKeys);
  await prepare?.(page);
  await page.goto(address);
  await inState(page, state);
  return page;
}

export const inState = (page, state) => page.waitForSelector(`html[data-state="${state}"]`);
export const focused = (page) => page.evaluate(() => document.activeElement.id);
export const textOf = (page, selector) => page.$eval(selector, (element) => element.textContent);

export async function startRace(page) {
  await page.keyboard.press('Enter'); // the button has the focus
  await inState(page, 'racing');
  await framesLater(page, 2);
}

// The game polls Escape once a frame: a tap between two polls goes unnoticed.
export async function endRace(page) {
  await page.keyboard.down('Escape');
  await inState(page, 'ended');
  await page.keyboard.up('Escape');
}

export async function framesLater(page, count) {
  const goal = count + (await page.evaluate(() => window.tarvik.frames));
  await page.waitForFunction((frames) => window.tarvik.frames >= frames, {}, goal);
}

/// In the page: notes which key the game got after how many frames.
function noteKeys() {
  window.seenKeys = [];
  const note = ({ code, type }) => {
    if (document.activeElement?.id === 'game' && !code.includes('Enter')) {
      window.seenKeys.push(`${window.tarvik.frames + 1},${type === 'keydown' ? 1 : 0},${code}`);
    }
  };
  window.addEventListener('keydown', note, true);
  window.addEventListener('keyup', note, true);
  window.addEventListener('click', (event) => event.target.id === 'start' && (window.seenKeys = []), true);
}

/// Plays the race so far again without a browser: the canvas must show the same frame, pixel by
/// pixel. Returns what the game knows then, and the frame's number.
export async function assertSameAsReplay(page) {
  const { frame, keys, digest } = await page.evaluate(async () => {
    const copy = new OffscreenCanvas(640, 480).getContext('2d');
    copy.drawImage(document.getElementById('game'), 0, 0);
    const { data } = copy.getImageData(0, 0, 640, 480);
    const found = { frame: window.tarvik.frames, keys: [...window.seenKeys] };
    return { ...found, digest: [...new Uint8Array(await crypto.subtle.digest('SHA-256', data))] };
  });
  const replay = `${ROOT}build/test/bin/tarvik-replay`;
  const { stdout, stderr } = spawnSync(replay, [`${ROOT}build/release/bin/data`, frame, ...keys], { maxBuffer: 1e8 });
  const expected = [...createHash('sha256').update(stdout).digest()];
  assert.deepEqual(digest, expected, `frame ${frame} after keys ${keys.join(' ')}; ${stderr}`);
  return { ...JSON.parse(stderr), frame };
}
