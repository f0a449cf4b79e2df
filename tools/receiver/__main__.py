"""The local crash server: takes the requests of crash-report senders and keeps them in a folder.

    python3 tools/receiver [--port 8787] [--folder received] [--answer ENDPOINT=JSON]...

The port stands alone on the first line of standard output once connections are taken; everything for people goes to
standard error. It listens on 127.0.0.1 alone.
"""
import sys

sys.dont_write_bytecode = True

import argparse
import json
import signal
import socket

from answers import Answers, BadAnswer
from app import make_app
from server import make_server
from store import Store


def arguments():
    parser = argparse.ArgumentParser(prog="receiver", description="Local crash server for crash-report senders.")
    parser.add_argument("--port", type=int, default=8787, help="port on 127.0.0.1; 0 takes a free one (default 8787)")
    parser.add_argument("--folder", default="received", help="where requests are kept (default ./received)")
    parser.add_argument("--answer", action="append", default=[], metavar="ENDPOINT=JSON",
                        help='what an endpoint answers, as in dumpinfo={"status":503,"body":"full","delay":1,"cut":2}')
    return parser.parse_args()


def answers_of(options):
    answers = Answers()
    for option in options:
        endpoint, _, text = option.partition("=")
        try:
            answers.set(endpoint, json.loads(text))
        except (BadAnswer, ValueError) as error:
            sys.exit(f"receiver: --answer {option}: {error}")
    return answers


def listen(port):
    listener = socket.socket()
    listener.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
    try:
        listener.bind(("127.0.0.1", port))
    except (OSError, OverflowError) as error:
        sys.exit(f"receiver: cannot listen on 127.0.0.1:{port}: {getattr(error, 'strerror', None) or error}")
    listener.listen(128)
    return listener


def main():
    options = arguments()
    answers = answers_of(options.answer)
    listener = listen(options.port)
    try:
        store = Store(options.folder)
    except OSError as error:
        sys.exit(f"receiver: cannot use the folder {options.folder}: {error.strerror}")
    server = make_server(listener, make_app(store, answers))
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(0))
    port = listener.getsockname()[1]
    print(port, flush=True)
    print(f"receiver: http://127.0.0.1:{port}/ keeps requests in {store.folder}", file=sys.stderr, flush=True)
    try:
        server.serve_forever()
    except KeyboardInterrupt:
        pass


main()
