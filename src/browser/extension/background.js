// Hands the page of a tab to Ovrin. It goes on when the popup that asked for it is closed.
"use strict";

const api = globalThis.browser ?? globalThis.chrome;
const host = "org.ovrin.browser";

// In UTF-16 units. However it is written as JSON, a part stays below what the host takes in one message.
const partLength = 1_000_000;

// Tabs whose page is on its way, with the answer to come.
const underWay = new Map();

// Runs in the page.
function shownPage() {
    const address = new URL(document.location.href);
    // A place within the page is no part of its address, unless the page's scripts choose by it what to show.
    if (!/^#[!/]/.test(address.hash)) {
        address.hash = "";
    }
    return {address: address.href, html: document.documentElement.outerHTML};
}

function partsOf(html) {
    const text = html.toWellFormed ? html.toWellFormed() : html;
    const parts = [];
    for (let start = 0; start < text.length;) {
        let end = Math.min(start + partLength, text.length);
        const last = text.charCodeAt(end - 1);
        // A pair of surrogates stays together.
        if (end < text.length && last >= 0xd800 && last < 0xdc00) {
            --end;
        }
        parts.push(text.slice(start, end));
        start = end;
    }
    return parts;
}

function handOver(page) {
    return new Promise((resolve) => {
        const port = api.runtime.connectNative(host);
        port.onMessage.addListener((answer) => {
            resolve(answer);
            port.disconnect();
        });
        port.onDisconnect.addListener(() => {
            const why = port.error ?? api.runtime.lastError;
            console.warn(host, why?.message);
            resolve({sent: false, message: "Ovrin could not be reached. Is it installed on this computer?"});
        });
        const parts = partsOf(page.html);
        port.postMessage({kind: "page", address: page.address, parts: parts.length});
        for (const html of parts) {
            port.postMessage({kind: "part", html});
        }
    });
}

async function send(tabId) {
    let page = null;
    try {
        const [injection] = await api.scripting.executeScript({target: {tabId}, func: shownPage});
        page = injection?.result;
    } catch (error) {
        console.warn(error.message);
    }
    const answer = page?.html
        ? await handOver(page)
        : {sent: false, message: "This page cannot be read by extensions."};
    // For whoever has closed the popup meanwhile.
    await api.action.setBadgeText({tabId, text: answer.sent ? "✓" : "!"}).catch(() => {});
    return answer;
}

api.runtime.onMessage.addListener((request, sender, reply) => {
    const {tabId} = request;
    if (!underWay.has(tabId)) {
        underWay.set(tabId, send(tabId).finally(() => underWay.delete(tabId)));
    }
    underWay.get(tabId).then(reply);
    return true; // the reply comes later
});
