"""The commands of the test kit."""

import sys

# Each command's module has `arguments(parser)` and `run(options)`, which returns the exit status.
COMMANDS = {
    "assemble": ("installation", "make a sandbox from a build"),
    "start": ("start", "start the program of a sandbox for a person"),
    "tour": ("tour", "take the guided tour through a sandbox"),
    "gallery": ("gallery", "take screenshots of every state of the interface"),
    "bench": ("bench", "measure the program beside baselines"),
    "compare": ("compare", "compare what the scenarios recorded on both executables"),
    "display": ("xserver", "run a command on a virtual display"),
    "wine": ("prefix", "run a Windows program under Wine"),
}


def main() -> int:
    """Parses the command line and runs one command; returns 125 if it cannot start."""
    if sys.argv[1:3] == ["wine", "--"]:
        # CTest starts each unit test under Wine like this, so skip the slow imports below.
        from ktr import prefix
        prefix.become(sys.argv[3:])
    import argparse
    import importlib

    parser = argparse.ArgumentParser(prog="ktr", description="Drives the program from outside.")
    commands = parser.add_subparsers(required=True, metavar="COMMAND")
    for name, (module, summary) in COMMANDS.items():
        command = commands.add_parser(name, help=summary)
        if sys.argv[1:2] == [name]:
            implementation = importlib.import_module(f"ktr.{module}")
            command.description = implementation.__doc__
            implementation.arguments(command)
            command.set_defaults(run=implementation.run)
    options = parser.parse_args()
    try:
        return int(options.run(options))
    except (RuntimeError, OSError) as error:
        print(f"ktr {sys.argv[1]}: {error}", file=sys.stderr)
        return 125


if __name__ == "__main__":
    sys.exit(main())
