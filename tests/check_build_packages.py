#!/usr/bin/python3
"""Checks that every system file the build found comes from a package the bootstrap installs.

The CMake cache records the folder of each package configuration the
configure step found (<Name>_DIR); every configuration file in such a folder
is read by the package (Qt's modules read their plugins' files beside them).
Each file is looked up with `dpkg -S`;
its package must be one of bootstrap's packages or a package they depend on
(Depends and Pre-Depends, followed through alternatives and virtual packages
as installed). A package outside that closure is installed on this machine by
chance, and a fresh machine would fail to configure.

usage: check_build_packages.py CMakeCache.txt BOOTSTRAP_SCRIPT
"""
import os
import re
import subprocess
import sys

DPKG_STATUS = "/var/lib/dpkg/status"


def cache_files(cache_path):
    """The package configuration files of the folders the configure step found."""
    files = []
    entry = re.compile(r"^([A-Za-z0-9_.+-]+_DIR):PATH=(.*)$")
    with open(cache_path, encoding="utf-8") as cache:
        for line in cache:
            m = entry.match(line.rstrip("\n"))
            if not m:
                continue
            name, value = m.groups()
            if name.startswith("CMAKE_") or not value.startswith("/usr/"):
                continue
            if os.path.isdir(value):
                configs = [f for f in os.listdir(value) if f.endswith("Config.cmake") or f.endswith("-config.cmake")]
                files += [(name, os.path.join(value, f)) for f in sorted(configs)]
    return files


def owners(paths):
    """The packages dpkg says own each file, without architecture qualifiers (one dpkg call)."""
    run = subprocess.run(["dpkg", "-S", *paths], capture_output=True, text=True)
    owned = {}
    for line in run.stdout.splitlines():
        if not line.startswith("diversion ") and ": " in line:
            names, path = line.rsplit(": ", 1)
            owned[path] = [p.strip().split(":")[0] for p in names.split(",")]
    return owned


def installed_packages():
    """Installed packages with their dependency groups and the virtual names they provide."""
    packages, provides = {}, {}
    with open(DPKG_STATUS, encoding="utf-8", errors="replace") as status:
        for stanza in status.read().split("\n\n"):
            fields, last = {}, None
            for line in stanza.splitlines():
                if line.startswith((" ", "\t")) and last:
                    fields[last] += " " + line.strip()
                elif ":" in line:
                    last, _, value = line.partition(":")
                    fields[last] = value.strip()
            if "install ok installed" not in fields.get("Status", ""):
                continue
            name = fields["Package"]
            groups = []
            for key in ("Depends", "Pre-Depends"):
                for group in filter(None, (g.strip() for g in fields.get(key, "").split(","))):
                    groups.append([bare_name(alt) for alt in group.split("|")])
            packages[name] = groups
            for virtual in filter(None, (v.strip() for v in fields.get("Provides", "").split(","))):
                provides.setdefault(bare_name(virtual), []).append(name)
    return packages, provides


def bare_name(relation):
    """'libfoo:any (>= 1.2)' -> 'libfoo'."""
    return relation.strip().split(" ")[0].split("(")[0].split(":")[0]


def closure(roots, packages, provides):
    """Every installed package that the roots pull in by their dependencies."""
    seen, todo = set(), list(roots)
    while todo:
        name = todo.pop()
        for real in ([name] if name in packages else provides.get(name, [])):
            if real in seen:
                continue
            seen.add(real)
            for group in packages[real]:
                todo.extend(group)
    return seen


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    cache_path, bootstrap = sys.argv[1:]
    roots = subprocess.run([bootstrap, "--list"], capture_output=True, text=True, check=True).stdout.split()
    packages, provides = installed_packages()
    pulled_in = closure(roots, packages, provides)
    found = cache_files(cache_path)
    if not found:
        sys.exit("no package configuration found in " + cache_path)
    owned = owners([path for _, path in found])
    missing = []
    for entry, path in found:
        names = owned.get(path, [])
        if names and not any(p in pulled_in for p in names):
            missing.append(f"{entry}: {path} comes from {', '.join(names)}, which scripts/bootstrap does not install")
    for line in missing:
        print(line)
    print(f"{len(found)} files found by the build checked against {len(pulled_in)} packages bootstrap installs")
    sys.exit(1 if missing else 0)


if __name__ == "__main__":
    main()
