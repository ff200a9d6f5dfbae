"""The test kit: drives the program from outside. `python3 -m ktr --help` lists its commands."""
