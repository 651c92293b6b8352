#!/usr/bin/env python3
"""Times whole runs of an installed MorvexUtil against a peer that does the same amount of plain work, in turn and in
one run, and prints the ratios of the medians. Run it through scripts/bench.sh.

Usage: run_scenario.py <installation> <peers program> [--scale 1.0] [--rounds 5] [--only NAME,...]
"""

import argparse
import concurrent.futures
import os
import pathlib
import random
import shutil
import socket
import statistics
import struct
import subprocess
import sys
import tempfile
import time

CATEGORIES = ["TR;TV;LOC;STEM", "TR;TV;RCR;PAX", "SCEN;BD;IND", "SCEN;NACT", "CMP;MESH", "TR;BOGY", "RT;RU", "TX"]
WORDS = ["Mountain", "Valley", "Express", "Junction", "Coal", "Timber", "Signal", "Granary", "Viaduct", "Harbour",
         "Freight", "Local", "Northern", "Branch", "Depot", "Station", "Brick", "Crossing", "Water", "Tower"]


def padded(text):
    raw = text.encode() + b"\0"
    return struct.pack("<I", len(raw)) + raw


def kuid(user, content, version=0):
    return struct.pack("<iI", content, (version << 25) | (user & 0x1FFFFFF))


NULL_KUID = kuid(-1, -1, 127)


def write_index(path, count, seed=7):
    """An index of `count` installed local records, each depending on two others, as a long-used library has it.
    Written piece by piece, so that this process stays small."""
    rng = random.Random(seed)

    def identity(i):
        return kuid(100000 + i % 500, 1000 + i)

    flags = bytes([0, 1, 0, 0, 0, 1, 0, 0,  0, 0, 1, 0, 0, 1, 1, 1,  1])
    with path.open("wb") as file:
        file.write(struct.pack("<IIII", 0xCEEBA2DB, 19, 0, count))
        for i in range(count):
            name = " ".join(rng.choices(WORDS, k=3)) + f" {i}"
            file.write(b"".join([
                identity(i), padded(rng.choice(CATEGORIES)), padded(name), padded("DE;AT"), padded("1950;1960"),
                padded("steam;" + name.split()[0].lower()), padded(""), padded(""), padded(""),
                padded(f"local/content {i:08x}{i}"), NULL_KUID, flags, struct.pack("<Ifb", 40000 + i, 2.9, -1),
                struct.pack("<QQ", 1600000000 + i, 1600000000 + i), padded(""), padded("")]))
        file.write(struct.pack("<I", 0) + NULL_KUID)                          # obsoletes
        file.write(struct.pack("<II", 0, 2 * count))
        for i in range(count):
            file.write(identity(i) + identity((i + 1) % count) + identity(i) + identity((i * 7 + 3) % count))
        file.write(struct.pack("<II", 0, 0))                                  # authors
        file.write(struct.pack("<IIII", 0x24534341, 1, 0, 0))                 # notes
        file.write(struct.pack("<II", 0, 0))                                  # archives
        file.write(struct.pack("<IIQI", 1, 0, 0, 0))                          # station
        file.write(struct.pack("<IIf", 0, 1, 0.0))                            # tail
        size = file.tell()
        file.seek(8)
        file.write(struct.pack("<I", size))


def write_asset(folder, content, files, megabytes, seed=3):
    """An asset of `files` files with the mix of an engine's folder: textures, meshes, sounds, scripts."""
    rng = random.Random(seed)
    folder.mkdir(parents=True)
    (folder / "config.txt").write_text(
        f"kuid <kuid:523841:{content}>\r\nkind \"scenery\"\r\nusername \"Bench {content}\"\r\n"
        f"category-class \"BD\"\r\nmorvex-build 2.9\r\n")
    size = megabytes * 1000000 // files
    noise = rng.randbytes(65536)
    row = b"".join(bytes([x // 4 % 256, x * 3 // 8 % 256, 128 + x // 16 % 64, 255]) for x in range(512))
    text = ("function Update(void) { vehicle.SetSpeed(speed + 0.25); Sleep(0.5); } // keep the wheels turning\r\n" * 40)
    for i in range(files):
        kind = i % 5
        block = bytearray()
        while len(block) < size:
            if kind == 0:    # texture: smooth rows with a little noise
                start = rng.randrange(60000)
                block += bytes(a ^ (b & 3) for a, b in zip(row, noise[start:start + len(row)]))
            elif kind == 1:  # mesh: floats of a grid
                block += struct.pack("<512f", *[(len(block) / 64 + k) * 0.125 for k in range(512)])
            elif kind == 2:  # sound: a wave with noise
                block += struct.pack("<512h", *[(k * 64 % 20000) - 10000 + noise[k] for k in range(512)])
            elif kind == 3:
                block += text.encode()
            else:            # already packed pictures
                start = rng.randrange(32768)
                block += noise[start:start + 4096]
        name = f"part{i:04d}." + ["tga", "im", "wav", "gs", "jpg"][kind]
        (folder / name).write_bytes(block[:size])


def measure(command, cwd):
    """Wall seconds, processor seconds and peak bytes of one run."""
    start = time.perf_counter()
    process = subprocess.Popen(command, cwd=cwd, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    _, status, used = os.wait4(process.pid, 0)
    wall = time.perf_counter() - start
    process.returncode = os.waitstatus_to_exitcode(status)
    return wall, used.ru_utime + used.ru_stime, used.ru_maxrss * 1024, process.returncode


NGINX = """
daemon off;
master_process off;
pid @DIR@/pid;
events {}
http {
  access_log off;
  client_body_temp_path @DIR@/bodies;
  proxy_temp_path @DIR@/proxy;
  fastcgi_temp_path @DIR@/fastcgi;
  uwsgi_temp_path @DIR@/uwsgi;
  scgi_temp_path @DIR@/scgi;
  sendfile on;
  server {
    listen 127.0.0.1:@PORT@;
    root @DIR@/served;
  }
}
"""


def await_port(port):
    """Waits until a server of this machine takes connections."""
    for _ in range(500):
        try:
            socket.create_connection(("127.0.0.1", port)).close()
            return
        except OSError:
            time.sleep(0.01)
    sys.exit("the server doesn't start")


# A run's peak memory counts from its fork, so all are started by a process that was forked before this one grew.
STARTER = concurrent.futures.ProcessPoolExecutor(max_workers=1)


def run(command, cwd=None):
    return STARTER.submit(measure, command, cwd).result()


class Scenario:
    def __init__(self, installed, peers, scale, rounds):
        self.scale, self.rounds, self.peers = scale, rounds, peers
        self.work = pathlib.Path(tempfile.mkdtemp(prefix="morvex-bench-"))
        self.installed = installed

    def installation(self, name):
        root = self.work / name
        shutil.copytree(self.installed, root)
        return root

    def tool(self, root, *arguments):
        return [str(root / "bin" / "MorvexUtil"), *arguments]

    def pairs(self, ours, theirs, before_ours=None, before_theirs=None, rounds=None):
        """Runs both in turn; medians of (wall, cpu, peak) of each. A run that fails ends the scenario."""
        results = ([], [])
        for turn in range((rounds or self.rounds) + 1):
            for side, (what, prepare) in enumerate(((ours, before_ours), (theirs, before_theirs))):
                if prepare:
                    prepare()
                os.sync()  # else a run that flushes its own files waits for what others have left to write
                measured = run(what)
                if measured[3] != 0:
                    sys.exit(f"failed with {measured[3]}: {what}")
                if turn > 0:
                    results[side].append(measured)
        return [[statistics.median(r[i] for r in side) for i in range(3)] for side in results]

    def row(self, name, value, must, aim):
        verdict = "aim" if value <= aim else "must" if value <= must else "MISSED"
        print(f"{name:58} {value:8.2f}   must {must:<5} aim {aim:<5} {verdict}", flush=True)

    def index(self):
        count = int(100000 * self.scale)
        root = self.installation("index")
        write_index(root / "assets.tdx", count)
        size = (root / "assets.tdx").stat().st_size
        status = self.tool(root, "status", "<kuid:100000:1000>")
        copy = self.work / "readback.tdx"
        ours, peer = self.pairs(status, [self.peers, "readwrite", str(root / "assets.tdx"), str(copy)])
        self.row("status on 100,000 records / read and write back", ours[0] / peer[0], 4.5, 2)
        ours, peer = self.pairs(status, [self.peers, "sqlite", str(root / "assets.tdx"), str(self.work / "rows.db")])
        self.row("status / SQLite load and save", ours[0] / peer[0], 0.2, 0.07)
        search, plain = self.pairs(self.tool(root, "searchbycategory", "SCEN;BD|TR;LOC"), status)
        self.row("searchbycategory / status", search[0] / plain[0], 3, 2.5)
        big = self.installation("big")
        write_index(big / "assets.tdx", count * 10)
        size = (big / "assets.tdx").stat().st_size
        large, small = self.pairs(self.tool(big, "status", "<kuid:100000:1000>"), status, rounds=3)
        self.row("status: 1,000,000 records / 100,000, time", large[0] / small[0], 14, 11)
        self.row("status on 1,000,000: peak memory / file", large[2] / size, 3.6, 1.6)
        shutil.rmtree(big)
        shutil.rmtree(root)

    def rebuild(self):
        root = self.installation("rebuild")
        for i in range(int(100000 * self.scale)):
            folder = root / "local" / f"content {i:08x}"
            folder.mkdir(parents=True)
            (folder / "config.txt").write_text(
                f"kuid <kuid:100000:{i + 1}>\r\nkind \"scenery\"\r\nusername \"Asset {i}\"\r\n"
                f"category-class \"BD\"\r\nmorvex-build 2.9\r\nkuid-table {{\r\n 0 <kuid:100000:{i}>\r\n}}\r\n")
            (folder / "body.im").write_bytes(b"mesh")
            (folder / "body.tga").write_bytes(b"texture")

        def forget():
            for name in ("assets.tdx", "cache/assets.tdx", "cache/assets.bku"):
                (root / name).unlink(missing_ok=True)

        ours, peer = self.pairs(self.tool(root, "status", "<kuid:100000:7>"),
                                [self.peers, "walk", str(root / "local")], before_ours=forget, rounds=3)
        self.row("rebuild of 100,000 folders / walk", ours[0] / peer[0], 3, 1.6)
        shutil.rmtree(root)

    def packages(self):
        megabytes, files = max(2, int(200 * self.scale)), max(20, int(700 * self.scale))
        source = self.work / "source" / "bench"
        write_asset(source, 1, files, megabytes)
        root, other = self.installation("pack"), self.installation("unpack")
        run(self.tool(root, "installfrompath", str(source)))
        run(self.tool(root, "commit", "<kuid:523841:1>"))
        package, archive = self.work / "bench.cdp", self.work / "bench.zip"
        zipped = ["sh", "-c", f"rm -f '{archive}'; cd '{source}' && exec zip -q -9 -r '{archive}' ."]
        ours, peer = self.pairs(self.tool(root, "createcdp", str(package), "<kuid:523841:1>"), zipped, rounds=3)
        size = package.stat().st_size
        self.row("createcdp / zip -9: processor", ours[1] / peer[1], 0.85, 0.55)
        self.row("createcdp / zip -9: wall", ours[0] / peer[0], 0.85, 0.35)
        self.row("createcdp: peak memory / package", ours[2] / size, 2.3, 1.25)
        print(f"    package {size / 1e6:.1f} MB, zip {archive.stat().st_size / 1e6:.1f} MB")
        target = self.work / "unzipped"

        def empty():
            shutil.rmtree(target, ignore_errors=True)

        def uninstall():
            run(self.tool(other, "delete", "<kuid:523841:1>"))

        ours, peer = self.pairs(self.tool(other, "installcdp", str(package)),
                                ["unzip", "-q", "-o", str(archive), "-d", str(target)], uninstall, empty, rounds=3)
        self.row("installcdp / unzip: processor", ours[1] / peer[1], 2.9, 2.0)
        self.row("installcdp / unzip: wall", ours[0] / peer[0], 2.9, 1.1)
        self.row("installcdp: peak memory / package", ours[2] / size, 1.3, 1.15)

        asset = next((root / "local").iterdir())
        copied = self.work / "copied"
        volume = sum(f.stat().st_size for f in asset.iterdir())
        ours, peer = self.pairs(self.tool(root, "edit", "<kuid:523841:1>"), ["cp", "-r", str(asset), str(copied)],
                                lambda: run(self.tool(root, "revert", "<kuid:523841:1>")),
                                lambda: shutil.rmtree(copied, ignore_errors=True), rounds=3)
        self.row("edit / cp -r: wall", ours[0] / peer[0], 3, 1.3)
        self.row("edit: peak memory / asset", ours[2] / volume, 1.2, 0.1)
        run(self.tool(root, "revert", "<kuid:523841:1>"))
        for made in (root, other, source, copied, target):
            shutil.rmtree(made, ignore_errors=True)

    def commit(self):
        root = self.installation("commit")
        large, small = self.work / "sizes" / "large", self.work / "sizes" / "small"
        write_asset(large, 2, 100, max(4, int(200 * self.scale)))
        write_asset(small, 3, 100, 2)

        def fresh(source, name):
            def prepare():
                run(self.tool(root, "delete", name))
                run(self.tool(root, "installfrompath", str(source)))
            return prepare

        ours, peer = self.pairs(self.tool(root, "commit", "<kuid:523841:2>"),
                                self.tool(root, "commit", "<kuid:523841:3>"),
                                fresh(large, "<kuid:523841:2>"), fresh(small, "<kuid:523841:3>"))
        self.row("commit of 200 MB / commit of 2 MB", ours[0] / peer[0], 1.5, 1.2)
        shutil.rmtree(root)
        shutil.rmtree(large.parent)

    def report(self):
        """A page of 20,000 assets, each with a thumbnail. The aim is in seconds."""
        root = self.installation("report")
        rng = random.Random(11)
        pictures = []
        for k in range(20):
            rows = bytes((x * (k + 3) // 4 + y * 2 + rng.randrange(24)) & 255 for y in range(180) for x in range(720))
            pictures.append(subprocess.run(["cjpeg", "-quality", "75"], input=b"P6 240 180 255\n" + rows, check=True,
                                           stdout=subprocess.PIPE).stdout)
        for i in range(int(20000 * self.scale)):
            folder = root / "local" / f"content {i:06x}"
            folder.mkdir(parents=True)
            (folder / "config.txt").write_text(
                f"kuid <kuid:{100000 + i % 300}:{i + 1}>\r\nkind \"scenery\"\r\nusername \"{rng.choice(WORDS)} {i}\"\r\n"
                f"category-class \"{rng.choice(CATEGORIES)}\"\r\nmorvex-build 2.9\r\n"
                f"kuid-table {{\r\n 0 <kuid:{100000 + i * 7 % 300}:{i * 7 + 1}>\r\n}}\r\n")
            (folder / "thumbnail.jpg").write_bytes(rng.choice(pictures))
        page = self.work / "report.html"
        command = [str(root / "bin" / "MorvexHost"), "report", str(page)]
        run(command)
        walls = [run(command)[0] for _ in range(3)]
        self.row("report of 20,000 assets: seconds", statistics.median(walls), 10, 5)
        print(f"    page {page.stat().st_size / 1e6:.1f} MB")
        shutil.rmtree(root)

    def fetch(self):
        """A file of 1 GB, which is a hole on the disk, from an nginx of its own."""
        folder = self.work / "fetch"
        (folder / "served").mkdir(parents=True)
        with (folder / "served" / "file.bin").open("wb") as file:
            file.truncate(int(2**30 * self.scale))
        with socket.create_server(("127.0.0.1", 0)) as unused:
            port = unused.getsockname()[1]
        (folder / "nginx.conf").write_text(NGINX.replace("@DIR@", str(folder)).replace("@PORT@", str(port)))
        server = subprocess.Popen(["/usr/sbin/nginx", "-p", str(folder), "-e", str(folder / "errors"),
                                   "-c", str(folder / "nginx.conf")])
        try:
            await_port(port)
            url, target = f"http://127.0.0.1:{port}/file.bin", folder / "target"

            def forget():
                target.unlink(missing_ok=True)

            ours, peer = self.pairs([str(self.installed / "bin" / "MorvexHost"), "fetch", url, "-o", str(target)],
                                    ["curl", "-s", "-o", str(target), url], forget, forget, rounds=2 * self.rounds + 1)
            self.row("fetch of 1 GB / curl: wall", ours[0] / peer[0], 1.25, 1)
            self.row("fetch of 1 GB / curl: processor", ours[1] / peer[1], 1.25, 1)
            self.row("fetch: peak memory / curl", ours[2] / peer[2], 2, 1.2)
        finally:
            server.terminate()
            server.wait()
            shutil.rmtree(folder)

    def starts(self):
        root = self.installation("empty")
        run(self.tool(root, "version"))
        ours, peer = self.pairs([str(root / "bin" / "MorvexUtil"), "help"], ["true"], rounds=41)
        self.row("help / true", ours[0] / peer[0], 4, 2)
        ours, peer = self.pairs(self.tool(root, "version"), ["git", "--version"], rounds=41)
        self.row("version / git --version", ours[0] / peer[0], 5, 3)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("installation", type=pathlib.Path)
    parser.add_argument("peers")
    parser.add_argument("--scale", type=float, default=1.0)
    parser.add_argument("--rounds", type=int, default=5)
    parser.add_argument("--only", default="starts,index,rebuild,packages,commit,report,fetch")
    chosen = parser.parse_args()
    run(["true"])
    scenario = Scenario(chosen.installation, chosen.peers, chosen.scale, chosen.rounds)
    try:
        for name in chosen.only.split(","):
            getattr(scenario, name)()
    finally:
        shutil.rmtree(scenario.work, ignore_errors=True)


main()
