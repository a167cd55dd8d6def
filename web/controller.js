// A controller's Start button starts the race as well. During a race, the game itself handles
// controllers.
'use strict';

(() => {
  const STANDARD_START = 9;
  const button = document.getElementById('start');
  let wasDown = true; // as it is when it has just ended a race
  let counts = false;

  // Only on release: to the game, Start ends the race.
  function look() {
    const pads = navigator.getGamepads();
    const isDown = pads.some((pad) => pad?.mapping === 'standard' && pad.buttons[STANDARD_START]?.pressed);
    if (isDown && !wasDown) {
      counts = !button.disabled;
    } else if (!isDown && wasDown && counts) {
      counts = false;
      button.click();
    }
    wasDown = isDown;
    requestAnimationFrame(look);
  }

  window.addEventListener('gamepadconnected', look, { once: true });
})();
