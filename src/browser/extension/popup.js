// Sends the page in front as soon as it is opened, and says what became of it.
"use strict";

const api = globalThis.browser ?? globalThis.chrome;
const status = document.getElementById("status");
const detail = document.getElementById("detail");
const open = document.getElementById("open");

function show(answer) {
    document.body.dataset.state = answer.sent ? "sent" : "failed";
    status.textContent = answer.sent ? "Sent to Ovrin." : answer.message;
    detail.textContent = !answer.sent ? ""
        : answer.complete ? answer.title
        : `${answer.title}: this page didn’t include a complete recipe, so fill in what’s missing.`;
    open.hidden = !answer.sent;
    if (answer.sent) {
        open.focus();
    }
}

async function send() {
    const [tab] = await api.tabs.query({active: true, currentWindow: true});
    open.addEventListener("click", async (event) => {
        // The popup has no place of its own to follow a link in.
        event.preventDefault();
        await api.tabs.update(tab.id, {url: open.href});
        window.close();
    });
    show(await api.runtime.sendMessage({tabId: tab.id}));
}

send();
