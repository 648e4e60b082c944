// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

// play.mjs PLAYER.wasm BUNDLE: plays a bundle with the core that was compiled for the web. Needs node 20 or newer.
import { openSync, readFileSync } from 'node:fs';
import { WASI } from 'node:wasi';

const [player, bundle] = process.argv.slice(2);
const wasi = new WASI({ version: 'preview1', stdin: openSync(bundle), returnOnExit: true });
const { instance } = await WebAssembly.instantiate(readFileSync(player), wasi.getImportObject());
process.exitCode = wasi.start(instance);
