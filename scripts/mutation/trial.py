"""Runs of the test programs with one change switched on."""

import os
import resource
import shutil
import signal
import subprocess
import tempfile
import time

MOST_MEMORY = 6 << 30  # a change may make a loop endless
MOST_FILE = 1 << 30
MOST_SECONDS = 1800  # of a program without a change, on a busy machine


class Program:
    """A test program, which of the changes it asks for, and how long it takes without any."""

    def __init__(self, name, command):
        self.name = name
        self.command = [*command, "--gtest_fail_fast", "--gtest_brief=1", "--gtest_shuffle=0"]
        self.reached = set()
        self.seconds = 0.0

    def run(self, environment, limit):
        """Runs it in folders of its own: the exit code, -1 when it takes longer than `limit` seconds; and what it said."""
        folder = tempfile.mkdtemp(prefix="ventlock-mutant.")
        os.chmod(folder, 0o1777)  # as of /tmp: some tests, and the servers, run as another user
        own = {"TMPDIR": folder, "HOME": folder, "ODBCINI": f"{folder}/odbc.ini"}
        for kind in ("CONFIG", "STATE", "CACHE", "DATA"):
            own[f"XDG_{kind}_HOME"] = folder
        process = subprocess.Popen(
            self.command, cwd=folder, env={**os.environ, **own, **environment}, stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, start_new_session=True, preexec_fn=_prepare)  # fmt: skip
        try:
            said, _ = process.communicate(timeout=limit)
            return process.returncode, said.decode(errors="replace")
        except subprocess.TimeoutExpired:
            return -1, ""
        finally:
            _end(process)
            shutil.rmtree(folder, ignore_errors=True)

    def measure(self):
        """Runs the unchanged program: notes its time and the changes it asks for. Returns how it ended and what it said if it
        failed."""
        with tempfile.NamedTemporaryFile("r") as seen:
            os.chmod(seen.name, 0o666)
            begin = time.monotonic()
            code, said = self.run({"VENTLOCK_MUTANTS_SEEN": seen.name}, MOST_SECONDS)
            self.seconds = time.monotonic() - begin
            self.reached = {int(line) for line in seen}
        if code == -1:
            return f"It took longer than {MOST_SECONDS} s."
        return f"exit code {code}\n{said}" if code != 0 else None

    def answer(self, mutant):
        """ "passed", "failed" or "timeout" with this change."""
        code, _ = self.run({"VENTLOCK_MUTANT": str(mutant)}, 20 + 4 * self.seconds)
        return {0: "passed", -1: "timeout"}.get(code, "failed")


def _prepare():
    for number in (signal.SIGINT, signal.SIGHUP, signal.SIGQUIT, signal.SIGTERM):
        signal.signal(number, signal.SIG_DFL)  # whatever this run was started by
    resource.setrlimit(resource.RLIMIT_AS, (MOST_MEMORY, MOST_MEMORY))
    resource.setrlimit(resource.RLIMIT_FSIZE, (MOST_FILE, MOST_FILE))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def _end(process):
    """Ends what is left of the program and its children."""
    try:
        os.killpg(process.pid, signal.SIGKILL)
    except ProcessLookupError:
        pass
    process.wait()
