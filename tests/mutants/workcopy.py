"""A copy of the project, with a build folder that is kept from slip to slip."""

import filecmp
import glob
import os
import re
import shutil
import signal
import subprocess
from dataclasses import dataclass

TEST_SECONDS = 60


class BuildFailure(Exception):
    """What the build printed."""


@dataclass(frozen=True)
class Test:
    program: str
    arguments: tuple
    environment: tuple  # <name>=<value>
    folder: str


def visible_files(folder):
    """Files of the project below \\a folder: neither builds nor what is hidden."""
    for place, folders, files in os.walk(folder):
        is_top = place == folder
        folders[:] = [name for name in folders
                      if name[0] != "." and not (is_top and name.startswith("build"))]
        for name in files:
            yield os.path.relpath(os.path.join(place, name), folder)


class WorkCopy:
    def __init__(self, project, folder):
        self.project = project
        self.folder = folder
        self.build_folder = os.path.join(folder, "build/mutants")

    def synchronise(self):
        """Makes the copy like the project. What is alike keeps its time, so that little is built."""
        wanted = set(visible_files(self.project))
        for name in set(visible_files(self.folder)) - wanted:
            os.remove(os.path.join(self.folder, name))
        for name in wanted:
            source, target = (os.path.join(place, name) for place in (self.project, self.folder))
            if not os.path.isfile(target) or not filecmp.cmp(source, target, shallow=False):
                os.makedirs(os.path.dirname(target), exist_ok=True)
                shutil.copy(source, target)

    def write(self, name, text):
        with open(os.path.join(self.folder, name), "w", encoding="utf-8", newline="") as file:
            file.write(text)

    def _do(self, *command):
        done = subprocess.run(command, cwd=self.folder, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, text=True, errors="replace", check=False)
        if done.returncode != 0:
            raise BuildFailure(done.stdout)

    def configure(self):
        self._do("cmake", "--preset", "mutants", "--log-level=WARNING")

    def build(self, programs):
        targets = [os.path.relpath(program, self.build_folder) for program in programs]
        self._do("cmake", "--build", self.build_folder, "--target", *targets)

    def tests(self):
        """The tests that ctest would run, by name. Asked itself, it hides what is not built yet."""
        found = {}
        pattern = os.path.join(self.build_folder, "**/CTestTestfile.cmake")
        for path in glob.glob(pattern, recursive=True):
            with open(path, encoding="utf-8") as file:
                text = file.read()
            environments = dict(re.findall(
                r'^set_tests_properties\(\[=\[(.+?)\]=\] .*?\bENVIRONMENT "(.*?)"', text, re.M))
            for name, words in re.findall(r"^add_test\(\[=\[(.+?)\]=\] (.*)\)$", text, re.M):
                program, *arguments = re.findall(r'"(.*?)"', words)
                environment = environments.get(name, "")
                found[name] = Test(program, tuple(arguments),
                                   tuple(filter(None, environment.split(";"))),
                                   os.path.dirname(path))
        return found

    def failure(self, test, cases):
        """None when \\a test passes; otherwise what went wrong, in a few words."""
        environment = dict(os.environ)
        environment.update(entry.split("=", 1) for entry in test.environment)
        scratch = environment.get("TMPDIR", "")
        if test.environment and scratch:
            empty(scratch)
        with subprocess.Popen([test.program, *test.arguments, *cases], cwd=test.folder,
                              env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, start_new_session=True) as process:
            try:
                output = process.communicate(timeout=TEST_SECONDS)[0].decode(errors="replace")
            except subprocess.TimeoutExpired:
                return f"not done after {TEST_SECONDS} seconds"
            finally:
                end_group(process)
        if process.returncode == 0:
            return None
        failed = re.search(r"^(?:FAIL!|XPASS)\s*: ([^\s(]+)", output, re.MULTILINE)
        return failed[1] if failed else f"status {process.returncode}"


def empty(folder):
    """Makes \a folder, or empties it of what a failed test has left."""
    # A slip may leave files that can't be removed.
    subprocess.run(("chattr", "-R", "-i", folder), stderr=subprocess.DEVNULL, check=False)
    shutil.rmtree(folder, ignore_errors=True)
    os.makedirs(folder)


def end_group(process):
    """Ends what a test has started and left."""
    try:
        os.killpg(process.pid, signal.SIGKILL)
    except ProcessLookupError:
        pass
