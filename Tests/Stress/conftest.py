# SPDX-License-Identifier: MIT
"""The fixtures of the journeys serve here, too."""
import importlib.util
import pathlib

_journeys = pathlib.Path(__file__).resolve().parents[1] / "EndToEnd" / "conftest.py"
_specification = importlib.util.spec_from_file_location("journeys", _journeys)
_module = importlib.util.module_from_spec(_specification)
_specification.loader.exec_module(_module)
globals().update({name: value for name, value in vars(_module).items() if not name.startswith("__")})
