# SPDX-License-Identifier: MIT
"""Child processes that never outlive a test, also those that have left their parents."""
import contextlib
import ctypes
import os
import pathlib
import signal
import subprocess
import time

PR_SET_CHILD_SUBREAPER = 36


def adopt_orphans():
    """Makes every orphan among our descendants our own child, so that none can be lost."""
    ctypes.CDLL(None).prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0)


def status(pid):
    """The fields after the program's name in /proc/PID/stat (state, parent, group, session …), or None."""
    try:
        return pathlib.Path(f"/proc/{pid}/stat").read_text().rpartition(")")[2].split()
    except OSError:
        return None


def is_alive(pid):
    fields = status(pid)
    return fields is not None and fields[0] != "Z"


def command(pid):
    """The words that the process was started with; none once it has ended."""
    try:
        return pathlib.Path(f"/proc/{pid}/cmdline").read_bytes().decode(errors="replace").split("\0")
    except OSError:
        return []


@contextlib.contextmanager
def stopped(process):
    """It runs, and answers nobody meanwhile."""
    process.send_signal(signal.SIGSTOP)
    try:
        yield
    finally:
        process.send_signal(signal.SIGCONT)


def descendants(pid):
    """The ids of all live processes below `pid`, and of the dead that nobody has waited for."""
    children = {}
    for entry in pathlib.Path("/proc").iterdir():
        if entry.name.isdigit() and (fields := status(entry.name)):
            children.setdefault(int(fields[1]), []).append(int(entry.name))
    found, pending = [], [pid]
    while pending:
        below = children.get(pending.pop(), [])
        found += below
        pending += below
    return found


def end_orphans(known):
    """Ends whatever our tests have started and not ended, except the process ids in `known`."""
    for turn in range(100):
        left = [pid for pid in descendants(os.getpid()) if pid not in known]
        if not left:
            return
        for pid in left:
            _reap_or_end(pid, signal.SIGTERM if turn < 50 else signal.SIGKILL)
        time.sleep(0.02)


def _reap_or_end(pid, number):
    with contextlib.suppress(ChildProcessError):
        if os.waitpid(pid, os.WNOHANG)[0] == pid:
            return
    with contextlib.suppress(ProcessLookupError):
        os.kill(pid, number)


def end(process, timeout=5.0):
    """Ends a child of ours politely, then not."""
    if process.poll() is None:
        process.terminate()
        try:
            process.wait(timeout)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()
