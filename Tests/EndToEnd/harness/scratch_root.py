# SPDX-License-Identifier: MIT
"""This very system with a layer above it that is thrown away: packages are really installed there, and run by
somebody who is not root. Only root can make one."""
import os
import pathlib
import subprocess

from harness import processes

USER = 65534
AS_USER = ("setpriv", f"--reuid={USER}", f"--regid={USER}", "--clear-groups")
HOME = "/home/packaged"
LAYER = """
mount --make-rprivate /
mount -t tmpfs none "$0"
mkdir "$0"/upper "$0"/work "$0"/root
mount -t overlay none -o lowerdir=/,upperdir="$0"/upper,workdir="$0"/work "$0"/root
for folder in proc dev tmp; do mount --rbind /$folder "$0"/root/$folder; done
echo ready
exec sleep 10000
"""


def bus_configuration(folder, services):
    """Writes what a session bus needs that is to know only those services, and that lets root watch it."""
    path = folder / "bus.conf"
    path.write_text(
        '<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN" "busconfig.dtd">'
        f"<busconfig><type>session</type><listen>unix:tmpdir=/tmp</listen>{services}"
        '<policy context="default"><allow user="*"/><allow send_destination="*" eavesdrop="true"/>'
        '<allow eavesdrop="true"/><allow own="*"/></policy></busconfig>')
    path.chmod(0o644)
    return path


class ScratchRoot:
    """Use as a context manager. Programs in it see the desktop, and have a session bus of their own."""

    def __init__(self, desktop):
        self.desktop = desktop
        self._folder = desktop.home / "scratch"
        self._holder = None
        self.environment = {}

    def __enter__(self):
        self._folder.mkdir()
        self._holder = subprocess.Popen(
            ["unshare", "--mount", "sh", "-ec", LAYER, str(self._folder)], stdout=subprocess.PIPE, text=True)
        assert self._holder.stdout.readline() == "ready\n"
        for folder in (HOME, f"{HOME}/runtime"):
            self.run(["install", "-d", "-m", "700", "-o", str(USER), "-g", str(USER), folder])
        self.desktop.home.chmod(0o755)
        self.desktop.run(["xhost", "+local:"])
        self.environment = {
            **{name: value for name, value in self.desktop.environment.items() if not name.startswith("XDG_")},
            **{name: value for name, value in self.desktop.environment.items() if name.startswith("XDG_SESSION")},
            "HOME": HOME, "XDG_RUNTIME_DIR": f"{HOME}/runtime", "XDG_CURRENT_DESKTOP": self.desktop.environment.get(
                "XDG_CURRENT_DESKTOP", "")}
        configuration = bus_configuration(self.desktop.home, "<standard_session_servicedirs/>")
        bus = self.spawn(["dbus-daemon", f"--config-file={configuration}", "--nofork", "--print-address=1"],
                         stdout=subprocess.PIPE, text=True)
        self.desktop.bus_address = self.environment["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()
        return self

    def __exit__(self, *_):
        processes.end(self._holder)

    @property
    def path(self):
        """The root as seen from outside: through the one process that is inside."""
        return pathlib.Path(f"/proc/{self._holder.pid}/root") / str(self._folder / "root").lstrip("/")

    def _inside(self, command):
        return ["nsenter", "--mount", "--target", str(self._holder.pid), "chroot", str(self._folder / "root"), *command]

    def run(self, command):
        """Runs a program as root, to its end."""
        done = subprocess.run(
            self._inside(command), env={"PATH": "/usr/sbin:/usr/bin:/sbin:/bin", "DEBIAN_FRONTEND": "noninteractive"},
            stdin=subprocess.DEVNULL, capture_output=True, text=True, check=False)
        assert done.returncode == 0, f"{command}: {done.stdout}{done.stderr}"
        return done.stdout

    def spawn(self, command, **options):
        """Starts a program as the user."""
        with open(self.desktop.home / "logs" / pathlib.Path(command[0]).name, "ab") as log:
            return subprocess.Popen(
                self._inside([*AS_USER, *command]), env=self.environment,
                **{"stdin": subprocess.DEVNULL, "stdout": log, "stderr": log, **options})

    def ask(self, command):
        """Runs a program as the user, to its end, and returns what it printed."""
        process = self.spawn(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        answer, _ = process.communicate(timeout=30)
        assert process.returncode == 0, f"{command}: {answer}"
        return answer

    def user_files(self):
        """What is in the user's home, by name."""
        home = self.path / HOME.lstrip("/")
        return {str(file.relative_to(home)): file.read_bytes() for file in home.rglob("*") if file.is_file()}


def why_none():
    """Why there can be none here, or nothing."""
    return None if os.getuid() == 0 else "only root can install into a scratch root"
