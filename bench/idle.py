#!/usr/bin/env python3
"""Idle benchmark, run by hand: CPU of the console and everything it starts while
it sits on the main screen, on a fresh simulated unit under Xvfb.

    bench/idle.py [--camera none|new] [--windows 5] [--seconds 60] [--build DIR]

With --camera none the power-board simulator reports no camera, so there is no
live picture to draw; with new the simulated live picture shows. This process
makes itself the subreaper of the console's tree, so the CPU of helpers that
were started detached and have already ended still counts. Prints the share of
one core per window, the median, and the load average at the time.
"""
import argparse
import ctypes
import os
import re
import statistics
import subprocess
import sys
import tempfile
import time

PR_SET_CHILD_SUBREAPER = 36
TICKS = os.sysconf("SC_CLK_TCK")


def stat_fields(pid):
    with open(f"/proc/{pid}/stat") as f:
        text = f.read()
    # The command name may hold blanks; the fields after it are fixed.
    return text[text.rindex(")") + 2:].split()


def tree_ticks(root_pid):
    """utime+stime+cutime+cstime of root_pid and all its live descendants."""
    parents = {}
    for entry in os.listdir("/proc"):
        if entry.isdigit():
            try:
                parents[int(entry)] = int(stat_fields(entry)[1])
            except (OSError, ValueError):
                pass
    members, frontier = set(), [root_pid]
    while frontier:
        pid = frontier.pop()
        members.add(pid)
        frontier.extend(child for child, parent in parents.items() if parent == pid and child not in members)
    total = 0
    for pid in members:
        try:
            fields = stat_fields(pid)
            total += sum(int(v) for v in fields[11:15])
        except (OSError, ValueError):
            pass
    return total


def reap(console_pid):
    """Collects ended orphans (their CPU then counts in our children's times)."""
    while True:
        try:
            pid, _ = os.waitpid(-1, os.WNOHANG)
        except ChildProcessError:
            return
        if pid == 0:
            return
        if pid == console_pid:
            sys.exit("the console ended during the benchmark")


def total_ticks(console_pid):
    reap(console_pid)
    own = os.times()
    # Only orphans of the console's tree end while we measure, so our children's
    # times grow by theirs alone.
    return tree_ticks(console_pid) + round((own.children_user + own.children_system) * TICKS)


def wait_for(path, text, seconds=60):
    deadline = time.time() + seconds
    while time.time() < deadline:
        try:
            with open(path, errors="replace") as f:
                if text in f.read():
                    return
        except FileNotFoundError:
            pass
        time.sleep(0.1)
    sys.exit(f"timed out waiting for '{text}' in {path}")


def main():
    repo = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
    parser = argparse.ArgumentParser()
    parser.add_argument("--camera", default="none", choices=["none", "new", "old"])
    parser.add_argument("--windows", type=int, default=5)
    parser.add_argument("--seconds", type=float, default=60)
    parser.add_argument("--build", default=os.path.join(repo, "build"))
    args = parser.parse_args()

    ctypes.CDLL(None, use_errno=True).prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0)
    work = tempfile.mkdtemp(prefix="ductline-idle-")
    root = os.path.join(work, "root")
    env = dict(os.environ)
    exports = subprocess.run([os.path.join(repo, "unit/make-root"), root, args.build],
                             check=True, capture_output=True, text=True).stdout
    for name, value in re.findall(r"export (\w+)=(.*)", exports):
        env[name] = value.replace('"$PATH"', os.environ["PATH"]).strip("'\"")
    display = 150 + os.getpid() % 50
    env["DISPLAY"] = f":{display}"
    env["XDG_RUNTIME_DIR"] = os.path.join(work, "xdg")
    os.mkdir(env["XDG_RUNTIME_DIR"], 0o700)

    started = []
    try:
        started.append(subprocess.Popen(["Xvfb", f":{display}", "-screen", "0", "800x600x24", "-nolisten", "tcp"],
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL))
        for _ in range(100):
            if os.path.exists(f"/tmp/.X11-unix/X{display}"):
                break
            time.sleep(0.1)
        board_log = open(os.path.join(work, "powerboard.log"), "w")
        started.append(subprocess.Popen([os.path.join(root, "usr/local/bin/powerboard-sim"), "--root", root,
                                         "--camera", args.camera], env=env, stdout=board_log, stderr=board_log))
        for _ in range(100):
            if os.path.islink(os.path.join(root, "dev/ttyAMA1")):
                break
            time.sleep(0.1)
        out_path = os.path.join(work, "console.out")
        out = open(out_path, "w")
        console = subprocess.Popen([os.path.join(args.build, "src/Ductline")], cwd=root, env=env,
                                   stdout=out, stderr=out)
        started.append(console)
        wait_for(out_path, "Screen 1: Login screen")
        time.sleep(0.5)
        subprocess.run(["xdotool", "search", "--sync", "--class", "Ductline", "windowactivate", "--sync"],
                       env=env, capture_output=True, timeout=20)
        subprocess.run(["xdotool", "key", "Return"], env=env, check=True)
        wait_for(out_path, "Screen 2: Main screen")
        time.sleep(5)

        shares = []
        for window in range(args.windows):
            before, start = total_ticks(console.pid), time.monotonic()
            time.sleep(args.seconds)
            after, spent = total_ticks(console.pid), time.monotonic() - start
            share = 100.0 * (after - before) / TICKS / spent
            shares.append(share)
            print(f"window {window + 1}: {share:.2f}% of one core", flush=True)
        load = open("/proc/loadavg").read().split()[:3]
        print(f"camera {args.camera}: median {statistics.median(shares):.2f}% of one core over "
              f"{args.windows} windows of {args.seconds:.0f} s (console and all it started); "
              f"load average {' '.join(load)}")
    finally:
        for process in reversed(started):
            process.terminate()
            try:
                process.wait(10)
            except subprocess.TimeoutExpired:
                process.kill()
        subprocess.run(["rm", "-rf", work])


if __name__ == "__main__":
    main()
