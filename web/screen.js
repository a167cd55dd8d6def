// Where the picture is and how large: in the page, in full screen, or between the touch buttons.
//
// <html data-filled> says that the picture has the whole screen to itself: in full screen, and on a
// touch screen while somebody drives. tarvik.touch tells whether fingers are the main pointer.
'use strict';

window.tarvik = { frames: 0, laps: [], touch: matchMedia('(pointer: coarse)') };

(() => {
  const BLOCKS_ACROSS = 320;
  const BLOCKS_DOWN = 240;
  // Room for the thumbs: in landscape left and right together, in portrait below.
  const THUMBS_ACROSS = 248;
  const THUMBS_DOWN = 320;

  const { touch } = window.tarvik;
  const root = document.documentElement;
  const canvas = document.getElementById('game');
  const picture = document.getElementById('screen');
  const frame = document.getElementById('frame');
  const buttons = document.querySelectorAll('.full-screen');
  const setPixels = (name, value) => root.style.setProperty(name, `${value}px`);
  const isDriving = () => ['starting', 'racing'].includes(root.dataset.state);

  /// The room for the picture, in CSS pixels, and the smallest block.
  function room() {
    if (root.hasAttribute('data-filled')) {
      const { width, height } = picture.getBoundingClientRect(); // unlike innerWidth not rounded
      const thumbs = touch.matches && isDriving();
      const across = thumbs && width > height ? THUMBS_ACROSS : 0;
      const down = thumbs && width <= height ? Math.min(THUMBS_DOWN, height / 2) : 0;
      return { width: width - across, height: height - down, smallest: 1 };
    }
    const rem = parseFloat(getComputedStyle(root).fontSize);
    const beside = window.innerWidth >= 64 * rem ? 25 * rem : 3 * rem;
    return { width: root.clientWidth - beside, height: window.innerHeight - 5 * rem, smallest: 2 };
  }

  // The game draws 320 by 240 pixels, each as a block of two by two on the canvas. Such a block gets
  // the largest whole number of screen pixels for which there is room, and the picture a place where
  // screen pixels begin, so every block looks the same. Only in a page too small for blocks of two
  // is the picture made smaller.
  function fit() {
    root.toggleAttribute('data-filled', Boolean(document.fullscreenElement) || (touch.matches && isDriving()));
    const scale = window.devicePixelRatio || 1;
    const { width, height, smallest } = room();
    const largest = Math.floor(Math.min(width / BLOCKS_ACROSS, height / BLOCKS_DOWN) * scale + 0.001);
    const wanted = (BLOCKS_ACROSS * Math.max(smallest, largest)) / scale;
    setPixels('--width', wanted);

    // Boxes begin wherever the layout has them, transforms are exact: the box goes to a CSS pixel,
    // and from there the canvas to a pixel of the screen.
    setPixels('--left', 0);
    setPixels('--top', 0);
    const box = picture.getBoundingClientRect();
    const scrolled = root.hasAttribute('data-filled') ? [0, 0] : [window.scrollX, window.scrollY];
    const start = [Math.round(box.left + scrolled[0]), Math.round(box.top + scrolled[1])];
    setPixels('--left', start[0] - box.left - scrolled[0]);
    setPixels('--top', start[1] - box.top - scrolled[1]);
    const place = frame.getBoundingClientRect();
    const zoom = (place.width > wanted - 1 ? wanted : place.width) / canvas.width;
    const toPixel = (at) => Math.round(at * scale) / scale;
    const left = toPixel(place.left + scrolled[0]) - start[0];
    const top = toPixel(place.top + scrolled[1]) - start[1];
    canvas.style.transform = `translate(${left}px, ${top}px) scale(${zoom})`;
    root.style.setProperty('--zoom', zoom);
  }

  async function toggleFullScreen() {
    if (document.fullscreenElement) {
      await document.exitFullscreen();
    } else {
      await picture.requestFullscreen({ navigationUI: 'hide' });
      screen.orientation?.lock?.('landscape').catch(() => {}); // only phones and tablets can
    }
  }

  for (const button of buttons) {
    button.hidden = !document.fullscreenEnabled; // a phone's browser may have none
    button.addEventListener('click', () => {
      (isDriving() ? canvas : document.getElementById('start')).focus({ preventScroll: true });
      toggleFullScreen().catch(console.warn);
    });
  }
  document.addEventListener('fullscreenchange', () => {
    buttons.forEach((button) => {
      button.textContent = document.fullscreenElement ? 'Leave full screen' : 'Full screen';
    });
    fit();
  });
  document.addEventListener('statechange', fit);
  touch.addEventListener('change', fit);
  window.addEventListener('resize', fit);
  fit();
})();
