# SPDX-License-Identifier: MIT
"""Waiting for what can be seen, never for a time."""
import time


def wait_until(condition, what, timeout=10.0, interval=0.01):
    """Polls until `condition()` is true and returns its value; fails with `what` after `timeout` s."""
    deadline = time.monotonic() + timeout
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > deadline:
            raise AssertionError(f"not within {timeout:g} s: {what}")
        time.sleep(interval)


def stays(condition, what, seconds=0.4, interval=0.02):
    """Proves the negative: fails as soon as `condition()` is false within `seconds`."""
    deadline = time.monotonic() + seconds
    while time.monotonic() < deadline:
        assert condition(), f"did not stay so: {what}"
        time.sleep(interval)


def settles(condition, what, seconds=0.4, timeout=10.0):
    """Waits until `condition()` has been true for `seconds`: on a busy machine things still come and go."""
    since = time.monotonic()

    def is_settled():
        nonlocal since
        if not condition():
            since = time.monotonic()
        return time.monotonic() - since > seconds

    wait_until(is_settled, what, timeout)


def wait_front(display, title):
    """Waits until a window of that title has the keyboard, and returns it. One may follow another."""
    def in_front():
        window = display.find(title)
        return window if window and display.has_focus(window) else None

    return wait_until(in_front, f"{title} has the keyboard")
