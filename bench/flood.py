#!/usr/bin/env python3
"""Flood benchmark, run by hand: the console on a fresh simulated unit under Xvfb
receives 100,000 malformed storage-FIFO lines and 100,000 malformed power-board
lines while a key is pressed every second.

    bench/flood.py [--lines 100000] [--build DIR]

The power board is a pseudo-terminal held by this script. Keys alternate between
Help (F1) and Escape, which change screens; a key's latency is the time until
the console logs the new screen. Prints every key's latency, resident memory
before, at most and after, the growth of the console's log, and the load average.
"""
import argparse
import glob
import os
import re
import statistics
import subprocess
import sys
import tempfile
import threading
import time


def screen_lines(path):
    with open(path, errors="replace") as f:
        return re.findall(r"Screen (\d+):", f.read())


def rss_kib(pid):
    with open(f"/proc/{pid}/status") as f:
        return int(re.search(r"VmRSS:\s+(\d+)", f.read()).group(1))


def log_bytes(root):
    return sum(os.path.getsize(p) for p in glob.glob(os.path.join(root, "opt/hbi/log/Ductline-*.log")))


def wait_for_screen(path, count, seconds):
    deadline = time.monotonic() + seconds
    while time.monotonic() < deadline:
        if len(screen_lines(path)) > count:
            return True
        time.sleep(0.002)
    return False


def write_all(fd, data):
    view = memoryview(data)
    while view:
        view = view[os.write(fd, view):]


def main():
    repo = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
    parser = argparse.ArgumentParser()
    parser.add_argument("--lines", type=int, default=100000)
    parser.add_argument("--rounds", type=int, default=1, help="send the lines this many times over")
    parser.add_argument("--build", default=os.path.join(repo, "build"))
    args = parser.parse_args()

    work = tempfile.mkdtemp(prefix="ductline-flood-")
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

    board, board_slave = os.openpty()
    tty = os.path.join(root, "dev/ttyAMA1")
    if os.path.lexists(tty):
        os.remove(tty)
    os.symlink(os.ttyname(board_slave), tty)
    # The console's goodbye and requests are read and dropped, so it never blocks writing.
    threading.Thread(target=lambda: [os.read(board, 4096) for _ in iter(int, 1)], daemon=True).start()

    started = []
    try:
        started.append(subprocess.Popen(["Xvfb", f":{display}", "-screen", "0", "800x600x24", "-nolisten", "tcp"],
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL))
        for _ in range(100):
            if os.path.exists(f"/tmp/.X11-unix/X{display}"):
                break
            time.sleep(0.1)
        out_path = os.path.join(work, "console.out")
        out = open(out_path, "w")
        console = subprocess.Popen([os.path.join(args.build, "src/Ductline")], cwd=root, env=env,
                                   stdout=out, stderr=out)
        started.append(console)
        while "1" not in screen_lines(out_path):
            time.sleep(0.1)
        time.sleep(0.5)
        subprocess.run(["xdotool", "search", "--sync", "--class", "Ductline", "windowactivate", "--sync"],
                       env=env, capture_output=True, timeout=20)
        subprocess.run(["xdotool", "key", "Return"], env=env, check=True)
        wait_for_screen(out_path, 1, 30)
        time.sleep(3)

        rss_before, log_before = rss_kib(console.pid), log_bytes(root)
        fifo_lines = b"".join(b"MNT what is this\n" if i % 2 else b"rubbish %d\n" % i
                              for i in range(args.lines)) * args.rounds
        board_lines = b"".join(b"NOT A BOARD LINE\n" if i % 2 else b"junk %d\n" % i
                               for i in range(args.lines)) * args.rounds

        def feed_fifo():
            fd = os.open(os.path.join(root, "var/hbi/fifo"), os.O_WRONLY)
            write_all(fd, fifo_lines)
            os.close(fd)

        writers = [threading.Thread(target=feed_fifo),
                   threading.Thread(target=write_all, args=(board, board_lines))]
        flood_start = time.monotonic()
        for writer in writers:
            writer.start()
        latencies, rss_most, key = [], rss_before, "F1"
        # Keys go on while the flood lasts and five seconds after.
        quiet_since = None
        while quiet_since is None or time.monotonic() - quiet_since < 5:
            if quiet_since is None and not any(w.is_alive() for w in writers):
                quiet_since = time.monotonic()
                flood_seconds = quiet_since - flood_start
            count = len(screen_lines(out_path))
            pressed = time.monotonic()
            subprocess.run(["xdotool", "key", key], env=env, check=True)
            if wait_for_screen(out_path, count, 30):
                latencies.append((time.monotonic() - pressed) * 1000)
            else:
                latencies.append(float("inf"))
            key = "Escape" if key == "F1" else "F1"
            rss_most = max(rss_most, rss_kib(console.pid))
            time.sleep(max(0.0, 1.0 - (time.monotonic() - pressed)))
        rss_after, log_after = rss_kib(console.pid), log_bytes(root)

        print("key latencies (ms, including xdotool):", " ".join(f"{v:.0f}" for v in latencies))
        print(f"{args.lines * args.rounds} FIFO lines and {args.lines * args.rounds} board lines sent in "
              f"{flood_seconds:.1f} s; "
              f"{len(latencies)} keys: median {statistics.median(latencies):.0f} ms, worst {max(latencies):.0f} ms")
        print(f"resident memory: {rss_before} KiB before, {rss_most} KiB at most, {rss_after} KiB after")
        print(f"console log grew by {log_after - log_before} bytes")
        print("load average", " ".join(open("/proc/loadavg").read().split()[:3]))
        if os.environ.get("FLOOD_SHOW_LOG"):
            subprocess.run(f"cut -d, -f3 {root}/opt/hbi/log/Ductline-*.log | sed 's/[0-9]\\+/N/g' | sort | uniq -c | sort -rn | head -15",
                           shell=True)
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
