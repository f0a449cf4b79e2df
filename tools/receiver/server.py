"""The HTTP server under the application: threads, and one line a request on standard error."""
import sys

from werkzeug import serving


class Handler(serving.WSGIRequestHandler):
    # A sender behind a proxy setting puts the absolute address into the request line; werkzeug reads both forms.

    def log_request(self, code="-", size="-"):
        print(f"receiver: {self.requestline!r} {code}", file=sys.stderr, flush=True)

    def log(self, type, message, *args):
        print("receiver: " + message % args, file=sys.stderr, flush=True)

    def handle(self):
        try:
            super().handle()
        except OSError:
            pass  # a sender that went away; the next one must not notice


def make_server(listener, app):
    server = serving.make_server("127.0.0.1", 0, app, threaded=True, request_handler=Handler, fd=listener.fileno())
    server.daemon_threads = True
    return server
