"""What each endpoint answers: 200 and its own text, or what a test or the command line has set."""
import threading
from dataclasses import dataclass

import endpoints

LIMITS = {"status": (200, 599), "delay": (0, 600), "cut": (0, 1 << 30), "times": (1, 1 << 30)}


class BadAnswer(Exception):
    """An answer that cannot be given; the text says why."""


@dataclass
class Answer:
    body: str
    status: int = 200
    delay: float = 0  # seconds before anything is answered
    cut: int = None  # the whole body is announced, this many bytes of it are sent
    times: int = None  # how many requests get this answer; None is all of them


class Answers:
    """Shared by the server's threads."""

    def __init__(self):
        self._lock = threading.Lock()
        self._set = {}

    def set(self, name, values):
        endpoint = endpoints.find(name)
        if endpoint is None:
            raise BadAnswer(f"no endpoint {name!r}; there are " + ", ".join(endpoints.BY_NAME))
        answer = Answer(**{"body": endpoint.body, **checked(values)})
        with self._lock:
            self._set[endpoint.name] = answer

    def take(self, endpoint):
        with self._lock:
            answer = self._set.get(endpoint.name)
            if answer is None:
                return Answer(endpoint.body)
            if answer.times is not None:
                answer.times -= 1
                if answer.times == 0:
                    del self._set[endpoint.name]
            return answer

    def all(self):
        with self._lock:
            return {name: vars(answer).copy() for name, answer in self._set.items()}

    def clear(self):
        with self._lock:
            self._set.clear()


def checked(values):
    if not isinstance(values, dict):
        raise BadAnswer("an answer is an object with status, body, delay, cut, times")
    for key, value in values.items():
        if key == "body":
            if not isinstance(value, str):
                raise BadAnswer("body is a text")
            continue
        if key not in LIMITS:
            raise BadAnswer(f"unknown key {key!r}")
        least, most = LIMITS[key]
        number = isinstance(value, (int, float) if key == "delay" else int) and not isinstance(value, bool)
        if not number or not least <= value <= most:
            raise BadAnswer(f"{key} is a number from {least} to {most}")
    return values
