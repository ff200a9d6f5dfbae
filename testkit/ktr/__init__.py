"""Drives the program from outside: a display, real input, windows, pictures and a sandbox.

Nothing in here knows a test framework, so that the guided tour can use it as well.
"""
