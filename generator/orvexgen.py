#!/usr/bin/python3
"""Entry point of the wrapper generator (see orvexgen/main.py)."""
import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from orvexgen.main import main  # noqa: E402

if __name__ == "__main__":
    sys.exit(main())
