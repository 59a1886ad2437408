// SPDX-FileCopyrightText: The Halvora client authors
// SPDX-License-Identifier: Apache-2.0

// The same work as bench_requests and bench_queue do, by the client that the music server's own authors offer.
//
//   mopidy-client.js requests PORT
//   mopidy-client.js queue FILE      the text of a tracklist's reply

"use strict";

const fs = require("fs");
const { isDeepStrictEqual } = require("util");
const Mopidy = require("mopidy");

const REQUESTS = 2000;
const TURNS = 15;

const quiet = { log() {}, warn() {}, error() {} };

function report(name, value, unit) {
    console.log(JSON.stringify({ case: name, side: "peer", value, unit }));
}

function fail(sentence) {
    console.error(`mopidy-client: ${sentence}`);
    process.exit(1);
}

function wallSeconds() {
    return Number(process.hrtime.bigint()) / 1e9;
}

function processSeconds() {
    const usage = process.cpuUsage();
    return (usage.user + usage.system) / 1e6;
}

// The memory that this process has now without what is mapped from files.
function ownMebibytes() {
    return Number(/^RssAnon:\s*(\d+) kB$/m.exec(fs.readFileSync("/proc/self/status", "utf8"))[1]) / 1024;
}

function online(settings) {
    const mopidy = new Mopidy({ console: quiet, ...settings });
    return new Promise((resolve) => mopidy.on("state:online", () => resolve(mopidy)));
}

async function ask(mopidy) {
    if ((await mopidy.tracklist.index()) !== 3) fail("a wrong answer");
}

async function inTurn(mopidy) {
    for (let i = 0; i < REQUESTS; ++i) await ask(mopidy);
}

async function pipelined(mopidy) {
    const asked = [];
    for (let i = 0; i < REQUESTS; ++i) asked.push(ask(mopidy));
    await Promise.all(asked);
}

async function measureRequests(name, work, mopidy) {
    const processor = processSeconds();
    const wall = wallSeconds();
    await work(mopidy);
    report(name, REQUESTS / (wallSeconds() - wall), "/s");
    report(`${name}-processor`, (processSeconds() - processor) * 1e3, "ms");
}

async function requests(port) {
    const mopidy = await online({ webSocketUrl: `ws://127.0.0.1:${port}/mopidy/ws` });
    await measureRequests("requests-in-turn", inTurn, mopidy);
    await measureRequests("requests-pipelined", pipelined, mopidy);
    report("requests-memory", process.resourceUsage().maxRSS / 1024, "MiB");
    report("requests-memory-own", ownMebibytes(), "MiB");
    process.exit(0);
}

// A socket that is open and never answers by itself.
class Wire {
    constructor() {
        this.readyState = Mopidy.WebSocket.OPEN;
        this.sent = [];
    }

    send(text) {
        this.sent.push(JSON.parse(text));
    }

    answer(text) {
        this.onmessage({ data: text });
    }
}

async function describedClient(wire) {
    const mopidy = new Mopidy({ console: quiet, autoConnect: false, webSocket: wire });
    const ready = new Promise((resolve) => mopidy.on("state:online", resolve));
    mopidy.connect();
    wire.onopen();
    const result = { "core.tracklist.get_tl_tracks": { description: "", params: [] } };
    wire.answer(JSON.stringify({ jsonrpc: "2.0", id: wire.sent.pop().id, result }));
    await ready;
    return mopidy;
}

// What our own side is asked for of the last entry, too.
function described(entries) {
    const { tlid, track } = entries[entries.length - 1];
    return [tlid, track.uri, track.name, track.album.uri, track.album.name, track.artists.map((artist) => artist.name)];
}

// The text stands ready, with the id that the next request will have.
async function queueTurn(mopidy, wire, text, wanted) {
    const arrived = mopidy.tracklist.getTlTracks();
    const reply = text.replace('"id":"0"', `"id":${wire.sent.pop().id}`);
    const before = wallSeconds();
    wire.answer(reply);
    const entries = await arrived;
    const elapsed = wallSeconds() - before;
    if (entries.length !== wanted.length || !isDeepStrictEqual(described(entries), described(wanted)))
        fail("the queue has not arrived");
    return elapsed;
}

async function queue(file) {
    const text = fs.readFileSync(file, "utf8");
    const wire = new Wire();
    const mopidy = await describedClient(wire);
    const wanted = JSON.parse(text).result;
    const times = [];
    await queueTurn(mopidy, wire, text, wanted); // only warms up
    for (let i = 0; i < TURNS; ++i) times.push(await queueTurn(mopidy, wire, text, wanted));
    times.sort((a, b) => a - b);
    report(`queue-${wanted.length}-wall`, times[Math.floor(TURNS / 2)] * 1e3, "ms");
}

const works = { requests, queue };
const [name, argument] = process.argv.slice(2);
(works[name] || (() => fail("requests PORT or queue FILE")))(argument);
