// What the theme's search takes from its page: how a query is read, and, where the site is opened as files, without a web
// server, the index and the worker. Browsers read no JSON from a file and start no worker from one, but both may be
// scripts: the index is loaded as a script, the worker in a frame of its own.

// The index holds the words of a name: of a name with several all are wanted, the last one may be unfinished.
window.__search = {
  transform: (query) =>
    query
      .split(/[\s"*:^~]+/)
      .flatMap((word) => (word.includes("_") ? word.split("_").filter(Boolean).map((part) => `+${part}`) : [word]))
      .join(" ")
      .trim(),
};

if (location.protocol === "file:") {
  const root = new URL("..", document.currentScript.src);

  window.__search.index = new Promise((resolve) => {
    window.lmqSearchIndex = resolve;
    const script = document.createElement("script");
    script.src = new URL("search/search_index.js", root);
    document.head.append(script);
  });

  // The theme's worker asks whether its parent has this.
  window.IFrameWorker = class extends EventTarget {
    constructor(url) {
      super();
      this.waiting = [];
      const frame = document.createElement("iframe");
      frame.hidden = true;
      document.documentElement.append(frame);
      const inner = frame.contentWindow;
      // What the worker posts comes out here.
      inner.postMessage = (data) => this.dispatchEvent(new MessageEvent("message", { data }));
      const script = inner.document.createElement("script");
      script.src = url;
      script.onload = () => {
        this.inner = inner;
        this.waiting.splice(0).forEach((data) => this.postMessage(data));
      };
      inner.document.body.append(script);
    }

    postMessage(data) {
      if (this.inner) {
        this.inner.dispatchEvent(new this.inner.MessageEvent("message", { data }));
      } else {
        this.waiting.push(data);
      }
    }

    terminate() {}
  };
  window.Worker = window.IFrameWorker;
}
