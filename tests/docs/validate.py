"""Says of every document, each a line of the standard input, whether it is valid by a JSON Schema.

    validate.py SCHEMA < DOCUMENTS

Prints "valid" or "invalid" a line. Fails if the schema itself is wrong, or if a line is no JSON.
"""
import json
import sys

import jsonschema

schema = json.load(open(sys.argv[1], encoding="utf-8"))
jsonschema.Draft202012Validator.check_schema(schema)
validator = jsonschema.Draft202012Validator(schema)
for line in sys.stdin.buffer:
    print("valid" if validator.is_valid(json.loads(line)) else "invalid")
