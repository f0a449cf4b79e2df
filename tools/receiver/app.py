"""The crash server's addresses: five for senders, a page for people, a control interface for tests."""
import io
import time
import zipfile

from flask import Flask, Response, abort, jsonify, render_template, request, send_file

import endpoints
import form
from answers import BadAnswer

LARGEST_BODY = 1 << 30


def make_app(store, answers):
    app = Flask("receiver", root_path=__file__.rpartition("/")[0], static_folder=None)
    app.config["MAX_CONTENT_LENGTH"] = LARGEST_BODY
    for endpoint in endpoints.ENDPOINTS:
        app.add_url_rule(endpoint.path, endpoint.name, taker(endpoint, store, answers), methods=["POST"])
    add_page(app, store)
    add_control(app, answers)
    return app


def taker(endpoint, store, answers):
    def take():
        try:
            received = form.read(request.headers.get("Content-Type"), request.get_data(), endpoint)
            check_archive(received)
        except form.BadForm as error:
            store.keep(endpoint, 400, refused=str(error))
            return plain(f"{error}\n", 400)
        answer = answers.take(endpoint)
        store.keep(endpoint, answer.status, received)
        time.sleep(answer.delay)
        return plain(answer.body, answer.status, answer.cut)
    return take


def check_archive(received):
    if received.file is None:
        return
    try:
        zipfile.ZipFile(io.BytesIO(received.file)).close()
    except zipfile.BadZipFile as error:
        raise form.BadForm(f"the file is no zip archive: {error}") from None


def plain(body, status, cut=None):
    whole = body.encode("utf-8")
    answer = Response(whole[:cut], status, content_type="text/plain; charset=utf-8")
    answer.headers["Content-Length"] = str(len(whole))
    return answer


def add_page(app, store):
    @app.get("/")
    def page():
        received = store.all()[::-1]
        return render_template("page.html", crashes=crashes_of(received), titles=endpoints.BY_NAME,
                               others=[one for one in received if not belongs_to_crash(one)], folder=store.folder)

    @app.get("/requests/<int:number>/archive.zip")
    def archive(number):
        path = store.archive(number)
        if path is None:
            abort(404)
        return send_file(path, mimetype="application/zip", as_attachment=True, download_name=f"crash-{number}.zip")


def belongs_to_crash(one):
    return one.endpoint in ("dumpinfo", "dumpfile") and not one.refused


def crashes_of(received):
    """The dump information and packages of one crash stand together: project, key and guid name it."""
    crashes = {}
    for one in received:
        if belongs_to_crash(one):
            crashes.setdefault((one.fields["project"], one.fields["key"], one.fields["guid"]), []).append(one)
    return [{"project": name[0], "key": name[1], "guid": name[2], "requests": requests[::-1]}
            for name, requests in crashes.items()]


def add_control(app, answers):
    @app.get("/control/answers")
    def show():
        return jsonify(answers.all())

    @app.post("/control/answers")
    def change():
        values = request.get_json(silent=True)
        if not isinstance(values, dict) or "endpoint" not in values:
            return plain("a JSON object with endpoint, status, body, delay, cut, times is expected\n", 400)
        try:
            answers.set(values.pop("endpoint"), values)
        except BadAnswer as error:
            return plain(f"{error}\n", 400)
        return jsonify(answers.all())

    @app.delete("/control/answers")
    def clear():
        answers.clear()
        return jsonify({})
