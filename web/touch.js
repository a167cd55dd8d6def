// Touch buttons: a finger on one holds its key down, which to the game is a key of the keyboard.
'use strict';

(() => {
  const canvas = document.getElementById('game');
  const fingers = new Map(); // by pointer: where it came down, and the button it holds now or null

  const buttonOf = (element) => element?.closest('[data-code]') ?? null;
  const isArrow = (button) => button !== null && button.matches('.arrow');
  const isHeld = (button) => [...fingers.values()].some((finger) => finger.holds === button);

  function send(type, button) {
    const { code, key } = button.dataset;
    canvas.focus({ preventScroll: true });
    canvas.dispatchEvent(new KeyboardEvent(type, { code, key, bubbles: true }));
    button.classList.toggle('held', type === 'keydown');
  }

  // Escape stays down until the race is over: the game looks for it once a frame, and would miss a
  // tap while it waits for the gears.
  function hold(finger, button) {
    const before = finger.holds;
    finger.holds = null;
    if (before && before !== button && before.dataset.code !== 'Escape' && !isHeld(before)) {
      send('keyup', before);
    }
    if (button && before !== button && !isHeld(button)) {
      send('keydown', button);
    }
    finger.holds = button;
  }

  function press(event) {
    const button = buttonOf(event.target);
    if (button) {
      const finger = { start: button, holds: null };
      fingers.set(event.pointerId, finger);
      hold(finger, button);
    }
  }

  // A finger that slides off a button lets go of it; among the arrows it may slide on, and back.
  function slide(event) {
    const finger = fingers.get(event.pointerId);
    if (finger) {
      const button = buttonOf(document.elementFromPoint(event.clientX, event.clientY));
      const stays = button === finger.holds || (isArrow(finger.start) && isArrow(button));
      hold(finger, stays ? button : null);
    }
  }

  function lift(event) {
    const finger = fingers.get(event.pointerId);
    if (finger) {
      hold(finger, null);
      fingers.delete(event.pointerId);
    }
  }

  for (const pad of document.querySelectorAll('.pad')) {
    pad.addEventListener('pointerdown', press);
    // What a browser does by itself would take the focus from the canvas, select or magnify.
    for (const type of ['touchstart', 'mousedown']) {
      pad.addEventListener(type, (event) => buttonOf(event.target) && event.preventDefault(), { passive: false });
    }
  }
  window.addEventListener('pointermove', slide);
  window.addEventListener('pointerup', lift);
  window.addEventListener('pointercancel', lift);
  document.getElementById('screen').addEventListener('contextmenu', (event) => {
    if (document.documentElement.hasAttribute('data-filled')) {
      event.preventDefault();
    }
  });
  document.addEventListener('statechange', () => {
    fingers.clear(); // the buttons go when the race ends, and no more is heard of their fingers
    document.querySelectorAll('.held').forEach((button) => button.classList.remove('held'));
  });
})();
