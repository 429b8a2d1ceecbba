// SPDX-License-Identifier: MIT
// Sounds by Web Audio, which browsers let begin with the first press.
const sounds = (() => {
  const latest = 500;  // milliseconds by which a sound may be late
  let decoded = new Map();
  let context = null;
  let playing = null;
  let requests = 0;

  async function load(path) {
    const bytes = await files.open(path);
    if (!bytes) return null;
    return new OfflineAudioContext(1, 1, 44100).decodeAudioData(bytes.slice().buffer).catch(() => null);
  }

  function prepare(paths) {
    decoded = new Map(paths.map((path) => [path, decoded.get(path) || load(path)]));
  }

  async function play(path) {
    const request = ++requests;
    const asked = performance.now();
    if (playing) playing.stop();
    playing = null;
    if (!context) return;
    const buffer = await (decoded.get(path) || load(path));
    if (request !== requests || performance.now() - asked > latest) return;
    // A bell stands in for what cannot be played.
    playing = buffer ? new AudioBufferSourceNode(context, {buffer}) : new OscillatorNode(context, {frequency: 880});
    playing.connect(context.destination);
    playing.start();
    if (!buffer) playing.stop(context.currentTime + 0.15);
  }

  function allow() {
    context = context || new AudioContext();
    if (context.state === 'suspended') context.resume();
  }
  for (const type of ['pointerdown', 'keydown']) addEventListener(type, allow, {capture: true});

  return {prepare, play};
})();
