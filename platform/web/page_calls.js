// The page's part of the layer, by the names of page.h; emscripten links it with the program.
//
// `Module` is what the page hands to createTarvik: `canvas`; `files`, a map from names such as
// "data/race1.map" to Uint8Arrays packed by gzip; `frameShown`, called after each frame; and
// `lapCompleted`, called with a lap's track and result.
mergeInto(LibraryManager.library, {
  $page: {
    frame: null, // ImageData over the program's own memory
    files: {}, // open files by number
    lastFile: 0,
    // Sent to a port whose other end is closed, a part's memory is free at once. The browser by
    // itself would only tidy up when 100 or 200 MB of them have come together.
    discard: function (buffer) {
      if (!page.bin) {
        var channel = new MessageChannel();
        channel.port2.close();
        page.bin = channel.port1;
      }
      page.bin.postMessage(null, [buffer]);
    },
  },

  page_show_frame__deps: ['$page'],
  page_show_frame: function (pixels, width, height) {
    if (!page.frame || page.frame.data.byteOffset !== pixels) {
      var bytes = new Uint8ClampedArray(HEAPU8.buffer, pixels, width * height * 4);
      page.frame = new ImageData(bytes, width, height);
      page.canvas = Module['canvas'].getContext('2d', { alpha: false });
    }
    page.canvas.putImageData(page.frame, 0, 0);
    Module['frameShown']();
  },

  // Display refreshes come first, so that a frame stays for a whole number of them: the first one
  // from a little before the deadline on. Where refreshes are too rare for that (a display slower
  // than 60 Hz) a timer keeps the pace; but not while the page is hidden, when there are no
  // refreshes and the game is suspended.
  page_wait_for_frame__deps: ['$Asyncify'],
  page_wait_for_frame: function (milliseconds) {
    Asyncify.handleSleep(function (wakeUp) {
      var EARLY = 4;
      var LATE = 10;
      var due = performance.now() + milliseconds;
      var timer = 0;
      var turn = 0;
      function goOn() {
        clearTimeout(timer);
        cancelAnimationFrame(turn);
        wakeUp();
      }
      function takeTurn() {
        if (performance.now() >= due - EARLY) {
          goOn();
        } else {
          turn = requestAnimationFrame(takeTurn);
        }
      }
      turn = requestAnimationFrame(takeTurn);
      if (!document.hidden) {
        timer = setTimeout(goOn, Math.max(0, milliseconds + LATE));
      }
    });
  },

  page_lap_completed: function (track, frames) {
    Module['lapCompleted'](track, frames);
  },

  page_may_look_at_controllers: function () {
    try {
      return navigator.getGamepads() ? 1 : 0;
    } catch (error) {
      return 0;
    }
  },

  page_has_focus: function () {
    return document.activeElement === Module['canvas'] ? 1 : 0;
  },

  page_show_pointer: function (visible) {
    Module['canvas'].style.cursor = visible ? '' : 'none';
  },

  page_open_file__deps: ['$page'],
  page_open_file: function (name) {
    var packed = Module['files'].get(UTF8ToString(name));
    var stream = new Blob(packed ? [packed] : []).stream();
    if (packed) {
      stream = stream.pipeThrough(new DecompressionStream('gzip'));
    }
    page.lastFile += 1;
    page.files[page.lastFile] = { reader: stream.getReader(), rest: new Uint8Array(0), end: false };
    return page.lastFile;
  },

  // Unpacks as it reads: of a map there is never more in memory than what the game asked for.
  page_read_file__deps: ['$page', '$Asyncify'],
  page_read_file: function (number, buffer, wanted) {
    return Asyncify.handleSleep(function (wakeUp) {
      var file = page.files[number];
      var count = 0;
      function take() {
        var part = file.rest.subarray(0, wanted - count);
        HEAPU8.set(part, buffer + count);
        count += part.length;
        file.rest = file.rest.subarray(part.length);
        if (part.length > 0 && file.rest.length === 0) {
          page.discard(part.buffer);
          file.rest = new Uint8Array(0);
        }
        if (count === wanted || file.end) {
          wakeUp(count);
          return;
        }
        file.reader.read().then(
          function (next) {
            file.end = next.done;
            file.rest = next.done ? file.rest : next.value;
            take();
          },
          function () {
            file.end = true; // damaged: keep what could be read
            take();
          }
        );
      }
      take();
    });
  },

  page_close_file__deps: ['$page'],
  page_close_file: function (number) {
    var file = page.files[number];
    if (!file) {
      return 0;
    }
    file.reader.cancel().catch(function () {});
    delete page.files[number];
    return 1;
  },
});
