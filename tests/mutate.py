"""Changes the program in small ways, one at a time, and counts which changes the unit tests notice.

    mutate.py [SAMPLE [SEED] | all | survivors | FILE...]

Of all mutants of model, system and update, SAMPLE many (60) are tried, chosen by SEED, which is
printed; "all" tries each of them, "survivors" those again that survived the last time. A mutant
flips a comparison, a boolean operator, a constant, an arithmetic operator or what is returned.
Comments and texts are left alone.

This works on a copy of the sources in build/mutate, in which rooms are shared libraries: a mutant
costs compiling one file, linking its room, and the room's unit tests until one fails. Some mutants
can't be noticed, because they mean the same; tests/equivalent-mutants.txt lists them with reasons.
They count as survivors. Fails if one survives that isn't listed, or if fewer than 85 % die of a
sample or of all.
"""

import collections
import dataclasses
import itertools
import json
import os
import pathlib
import random
import re
import resource
import shlex
import shutil
import signal
import subprocess
import sys
import time

REPOSITORY = pathlib.Path(__file__).resolve().parents[1]
HOME = REPOSITORY / "build" / "mutate"
TREE = HOME / "tree"
BUILD = TREE / "build" / "mutate"
EXPLAINED = REPOSITORY / "tests" / "equivalent-mutants.txt"
RESULTS = HOME / "results.json"
ROOMS = ("model", "system", "update")
DEFAULT_SAMPLE = 60
LEAST_KILLED = 85  # per cent
MEMORY = 8 << 30  # a mutant may ask for memory without end

# --- The changes ----------------------------------------------------------------------------------

COMPARISONS = {"==": ["!="], "!=": ["=="], "<": ["<=", ">="], ">": [">=", "<="],
               "<=": ["<", ">"], ">=": [">", "<"]}
OPERATORS = COMPARISONS | {
    "&&": ["||"], "||": ["&&"], "+": ["-"], "-": ["+"], "*": ["/"], "/": ["*"], "%": ["*"],
    "&": ["|"], "|": ["&"], "<<": [">>"], ">>": ["<<"],
    "+=": ["-="], "-=": ["+="], "*=": ["/="], "|=": ["&="], "&=": ["|="]}
# The formatter puts spaces around binary operators and nowhere else.
OPERATOR = re.compile(r"(?<= )(?:" + "|".join(
    re.escape(operator) for operator in sorted(OPERATORS, key=len, reverse=True)) + r")(?= |$)")
STEP = re.compile(r"(?<!operator)(?:\+\+|--)")
NEGATION = re.compile(r"!(?=[\w(*])")
BOOLEAN = re.compile(r"\b(?:true|false)\b")
NUMBER = re.compile(r"(?<![\w.])(0[xX][0-9A-Fa-f]+|\d+)(?=[uUlL]*\b)(?![\w]*\.\d)")
RETURN = re.compile(r"\breturn\b ?(?P<value>[^;]*);")
CONDITION = re.compile(r"\b(?:if|while) \((?P<condition>.*)\)(?: \{)?$")
UNTOUCHED = re.compile(r"^\s*(?:#|static_assert|using |namespace |template|Q_PROPERTY)|Q_UNREACHABLE"
                       r"|qFatal")
GETTER = re.compile(r"\bconst \{ return m_\w+; \}$")
DULL_VALUES = ("", "{}", "true", "false", "nullptr", "std::nullopt", "*this")


@dataclasses.dataclass(frozen=True)
class Mutant:
    file: str
    line: int
    before: str  # the line, without white space around it
    after: str

    def key(self):
        """What tells it from others however lines move."""
        return f"{self.file}: {self.before} => {self.after}"

    def __str__(self):
        return f"{self.file}:{self.line}: {self.before} => {self.after}"


def code_of(text):
    """The text with comments and literals of characters and strings blanked out."""
    token = re.compile(r"//[^\n]*|/\*.*?\*/|(?:u8|u|U|L)?\"(?:\\.|[^\"\\\n])*\"(?:_\w+)?"
                       r"|(?:u8|u|U|L)?'(?:\\.|[^'\\\n])+'", re.DOTALL)
    return token.sub(lambda match: re.sub(r"[^\n]", " ", match.group()), text)


def changes(code):
    """What a line of code may become: (start, end, replacement)."""
    for match in OPERATOR.finditer(code):
        for other in OPERATORS[match.group()]:
            yield *match.span(), other
    for match in STEP.finditer(code):
        yield *match.span(), "--" if match.group() == "++" else "++"
    for match in NEGATION.finditer(code):
        yield *match.span(), ""
    for match in BOOLEAN.finditer(code):
        yield *match.span(), "false" if match.group() == "true" else "true"
    for match in NUMBER.finditer(code):
        value = int(match.group(1), 0)
        yield *match.span(1), "0" if value == 1 else str(value + 1)
    for match in RETURN.finditer(code):
        value = match.group("value").strip()
        if value == "" and code[match.start():match.end()] == "return;":
            yield *match.span(), ";"
        elif value not in DULL_VALUES and not value.isdigit():
            yield *match.span("value"), "{}"
    match = CONDITION.search(code)
    if match and not re.search(r" [=<>&|!]+ |;|!", match.group("condition")):
        yield match.start("condition"), match.start("condition"), "!("
    # A condition that is negated needs its other half; see apply().


def apply(line, change):
    start, end, replacement = change
    if replacement == "!(":
        closing = CONDITION.search(code_of(line)).end("condition")
        return line[:start] + "!(" + line[start:closing] + ")" + line[closing:]
    return line[:start] + replacement + line[end:]


def mutants_of(file):
    """All mutants of a file."""
    text = (REPOSITORY / file).read_text()
    lines = text.splitlines()
    for number, code in enumerate(code_of(text).splitlines()):
        if UNTOUCHED.search(code) or GETTER.search(code):
            continue
        line = lines[number]
        for change in changes(code.rstrip()):
            yield Mutant(file, number + 1, line.strip(), apply(line, change).strip())


def sources():
    return sorted(subprocess.run(
        ["git", "ls-files", *(f"src/{room}/*.{ending}" for room in ROOMS for ending in ("cpp", "h"))],
        check=True, cwd=REPOSITORY, stdout=subprocess.PIPE, text=True).stdout.split())


# --- Building and testing -------------------------------------------------------------------------


def room_of(file):
    return file.split("/")[1]


def quiet(command, **options):
    return subprocess.run(command, check=False, stdin=subprocess.DEVNULL,
                          stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                          env=os.environ | {"CCACHE_DISABLE": "1"}, **options).returncode == 0


class Workshop:
    """A copy of the sources with a build of its own."""

    def __init__(self):
        self._copy_sources()
        self._run(["cmake", "--preset", "mutate", "--log-level=WARNING"], stdout=subprocess.DEVNULL)
        self._build()
        entries = json.loads((BUILD / "compile_commands.json").read_text())
        self._compile = {entry["file"]: entry for entry in entries}
        self._tests = self._measured_tests()
        self._linking = {}

    @staticmethod
    def _run(command, **options):
        subprocess.run(command, check=True, cwd=TREE, **options)

    @staticmethod
    def _copy_sources():
        listed = subprocess.run(["git", "ls-files", "--cached", "--others", "--exclude-standard"],
                                check=True, cwd=REPOSITORY, stdout=subprocess.PIPE,
                                text=True).stdout.splitlines()
        for name in listed:
            source, copy = REPOSITORY / name, TREE / name
            if not source.is_file():
                continue
            if copy.is_file() and copy.read_bytes() == source.read_bytes():
                continue
            copy.parent.mkdir(parents=True, exist_ok=True)
            shutil.copyfile(source, copy)
        kept = set(listed)
        for folder in ("src", "tests"):
            for copy in list((TREE / folder).rglob("*")):
                if copy.is_file() and str(copy.relative_to(TREE)) not in kept:
                    copy.unlink()

    def _build(self):
        self._run(["cmake", "--build", "--preset", "mutate", "--target",
                   *(f"{room}_tests" for room in ROOMS)])

    @staticmethod
    def _test(test, limit):
        """Whether the test passes in time; ends all that it has started."""
        def prepare():
            resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
            resource.setrlimit(resource.RLIMIT_CORE, (0, 0))

        with subprocess.Popen(test["command"], cwd=BUILD, env=os.environ | test["environment"],
                              stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL, start_new_session=True,
                              preexec_fn=prepare) as process:
            try:
                return process.wait(limit) == 0
            except subprocess.TimeoutExpired:
                return False
            finally:
                try:
                    os.killpg(process.pid, signal.SIGKILL)
                except ProcessLookupError:
                    pass

    def _measured_tests(self):
        """The unit tests of each room, the quickest first. They must pass as things are."""
        listed = json.loads(subprocess.run(
            ["ctest", "--test-dir", str(BUILD), "--show-only=json-v1"], check=True,
            stdout=subprocess.PIPE).stdout)
        tests = {room: [] for room in ROOMS}
        for entry in listed["tests"]:
            properties = {item["name"]: item["value"] for item in entry["properties"]}
            for room in set(ROOMS) & set(properties.get("LABELS", [])):
                environment = dict(item.split("=", 1) for item in properties["ENVIRONMENT"])
                test = {"name": entry["name"], "command": entry["command"],
                        "environment": environment | {"GTEST_FAIL_FAST": "1"}}
                start = time.monotonic()
                if not self._test(test, 120):
                    sys.exit(f"mutate: {entry['name']} fails without any change")
                test["seconds"] = time.monotonic() - start
                tests[room].append(test)
        for room in ROOMS:
            tests[room].sort(key=lambda test: test["seconds"])
        return tests

    def _link_command(self, entry):
        target = re.search(r"CMakeFiles/([^/]+)\.dir/", entry["command"]).group(1)
        if target not in self._linking:
            commands = subprocess.run(["ninja", "-t", "commands", target], check=True, cwd=BUILD,
                                      stdout=subprocess.PIPE, text=True).stdout.splitlines()
            self._linking[target] = next(
                command for command in reversed(commands)
                if f"CMakeFiles/{target}.dir/" in command and " -c " not in command
                and " -o " in command)
        return self._linking[target]

    def rebuild(self, file):
        """Builds what a changed file is part of; false if it doesn't compile."""
        entry = self._compile.get(str(TREE / file))
        if not entry:  # a header
            return quiet(["ninja", f"{room_of(file)}_tests"], cwd=BUILD)
        compiling = [part for part in shlex.split(entry["command"])
                     if not part.endswith("/ccache")]
        return (quiet(compiling, cwd=entry["directory"])
                and quiet(self._link_command(entry), cwd=BUILD, shell=True))

    def outcome(self, mutant):
        """ "killed", "survived" or "not compiled"."""
        path = TREE / mutant.file
        lines = path.read_text().split("\n")
        lines[mutant.line - 1] = mutant.after
        path.write_text("\n".join(lines))
        if not self.rebuild(mutant.file):
            return "not compiled"
        for test in self._tests[room_of(mutant.file)]:
            if not self._test(test, max(10, 10 * test["seconds"])):
                return "killed"
        return "survived"

    def run(self, mutants):
        """Yields each mutant with its outcome."""
        # Headers last: they cost more, and leave more to build anew.
        mutants = sorted(mutants, key=lambda mutant: (mutant.file.endswith(".h"), mutant.file))
        for file, group in itertools.groupby(mutants, key=lambda mutant: mutant.file):
            original = (TREE / file).read_bytes()
            try:
                for mutant in group:
                    outcome = self.outcome(mutant)
                    (TREE / file).write_bytes(original)
                    yield mutant, outcome
            finally:
                (TREE / file).write_bytes(original)
                self.rebuild(file)


# --- Telling --------------------------------------------------------------------------------------


def explained():
    """The mutants that are known to mean the same; each in a line, its reason above it."""
    if not EXPLAINED.exists():
        return set()
    return {line for line in EXPLAINED.read_text().splitlines()
            if line and not line.startswith("#")}


def tell(results, seconds, least):
    known = explained()
    table = collections.defaultdict(collections.Counter)
    unexplained = []
    for mutant, outcome in results:
        table[mutant.file][outcome] += 1
        if outcome == "survived" and mutant.key() not in known:
            unexplained.append(mutant)
    total = sum(table.values(), collections.Counter())
    print(f"\n{'file':44} killed survived not compiled")
    for file, counts in [*sorted(table.items()), ("in all", total)]:
        print(f"{file:44} {counts['killed']:6} {counts['survived']:8} {counts['not compiled']:12}")
    for mutant in unexplained:
        print(f"survived: {mutant}")
    tried = total["killed"] + total["survived"]
    share = 100 * total["killed"] / tried if tried else 0
    print(f"{total['killed']} of {tried} mutants died, {share:.1f} % (at least {least}); "
          f"{total['survived'] - len(unexplained)} of the others mean the same; "
          f"{seconds / max(1, len(results)):.1f} s each")
    return share >= least and not unexplained


def chosen(mutants):
    what = sys.argv[1] if len(sys.argv) > 1 else str(DEFAULT_SAMPLE)
    if what == "all":
        return mutants
    if (REPOSITORY / what).is_file():
        return [mutant for mutant in mutants if mutant.file in sys.argv[1:]]
    if what == "survivors":
        keys = set(json.loads(RESULTS.read_text()))
        return [mutant for mutant in mutants if mutant.key() in keys]
    seed = int(sys.argv[2]) if len(sys.argv) > 2 else random.randrange(1_000_000)
    print(f"A sample of {what} from {len(mutants)} mutants, by the seed {seed}")
    return random.Random(seed).sample(mutants, min(int(what), len(mutants)))


def main():
    everything = [mutant for file in sources() for mutant in mutants_of(file)]
    stale = explained() - {mutant.key() for mutant in everything}
    if stale:
        sys.exit("mutate: no mutants any more:\n" + "\n".join(sorted(stale)))
    mutants = chosen(everything)
    workshop = Workshop()
    start = time.monotonic()
    results = []
    for mutant, outcome in workshop.run(mutants):
        results.append((mutant, outcome))
        print(f"[{len(results)}/{len(mutants)}] {outcome}: {mutant}", flush=True)
    RESULTS.write_text(json.dumps(
        [mutant.key() for mutant, outcome in results if outcome == "survived"], indent=1))
    # Survivors of the last time and single files have a share of their own.
    is_fair = len(sys.argv) < 2 or sys.argv[1] == "all" or sys.argv[1].isdigit()
    return 0 if tell(results, time.monotonic() - start, LEAST_KILLED if is_fair else 0) else 1


if __name__ == "__main__":
    sys.exit(main())
