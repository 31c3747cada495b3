"""The command "schema": the committed schema, and recipes held against it."""

import json
import re
import tomllib
import unittest

from program import EXAMPLE, ROOT, ProgramTest

TYPES = {"string": str, "integer": int, "number": (int, float), "boolean": bool, "array": list,
         "object": dict}


def fits_type(value, name):
    if isinstance(value, bool) and name in ("integer", "number"):
        return False
    return isinstance(value, TYPES[name])


def faults(value, schema, path=""):
    """What a JSON schema finds wrong, as far as the recipe's uses the language."""
    if "anyOf" in schema:
        return [] if any(not faults(value, each) for each in schema["anyOf"]) else [path]
    types = schema.get("type", [])
    types = [types] if isinstance(types, str) else types
    if types and not any(fits_type(value, name) for name in types):
        return [path]
    if "enum" in schema and value not in schema["enum"]:
        return [path]
    if isinstance(value, dict):
        others = schema.get("additionalProperties", {})
        found = []
        for key, entry in value.items():
            rule = schema["properties"].get(key, others)
            found += [f"{path}.{key}"] if rule is False else faults(entry, rule, f"{path}.{key}")
        return found
    if isinstance(value, list):
        if not schema.get("minItems", 0) <= len(value) <= schema.get("maxItems", len(value)):
            return [path]
        return [fault for entry in value for fault in faults(entry, schema["items"], path)]
    if isinstance(value, (int, float)) and not isinstance(value, bool):
        if not schema.get("minimum", value) <= value <= schema.get("maximum", value):
            return [path]
    return []


class Schema(ProgramTest):
    def schema(self):
        done = self.run_program("schema")
        self.check(done, 0)
        return json.loads(done.stdout)

    def test_the_committed_schema_is_the_programs(self):
        committed = (ROOT / "docs" / "recipe.schema.json").read_text(encoding="utf-8")
        self.assertEqual(self.run_program("schema").stdout, committed)

    def test_the_document_holds_the_schema(self):
        document = json.loads(self.run_program("schema", "--json").stdout)
        self.assertEqual(document["schema"], self.schema())
        self.assertEqual(document["command"], "schema")

    def test_the_example_fits(self):
        recipe = tomllib.loads((EXAMPLE / "cover.toml").read_text(encoding="utf-8"))
        self.assertEqual(faults(recipe, self.schema()), [])

    def test_a_new_recipe_fits_and_has_every_key(self):
        self.make_run()
        self.run_program("init", "Run02")
        text = (self.folder / "Cover02.toml").read_text(encoding="utf-8")
        text = re.sub(r"^# (?=angles|reduction_rates|digimat_angle)", "", text, flags=re.M)
        recipe, schema = tomllib.loads(text), self.schema()
        self.assertEqual(faults(recipe, schema), [])
        for section, table in recipe.items():
            if isinstance(table, dict) and section != "choices":
                self.assertEqual(set(schema["properties"][section]["properties"]), set(table))
        self.assertEqual(set(schema["properties"]), set(recipe))

    def test_editors_find_the_schema_by_the_first_line_of_a_new_recipe(self):
        self.make_run()
        self.run_program("init", "Run02")
        text = (self.folder / "Cover02.toml").read_text(encoding="utf-8")
        self.assertRegex(text.splitlines()[0],
                         r"^#:schema file:///[^/\s]\S*/zorbi2/recipe\.schema\.json$")

    def test_wrong_recipes_do_not_fit(self):
        schema = self.schema()
        for text, fault in (('[project]\nnmae = "x"\n', ".project.nmae"), ("[projekt]\n", ".projekt"),
                            ("[project]\nrun = -1\n", ".project.run"),
                            ("[project]\ntype = 12\n", ".project.type"),
                            ("[project]\nrunners = 1\n", ".project.runners"),
                            ("[target]\nmesh = true\n", ".target.mesh"),
                            ("[weld_lines]\nangles = [1, 2]\n", ".weld_lines.angles"),
                            ("[weld_lines]\nreduction_rates = [80, 0, 1]\n",
                             ".weld_lines.reduction_rates"),
                            ("require = [true]\n", ".require"),
                            ("[choices]\ndensity = [1]\n", ".choices.density")):
            self.assertEqual(faults(tomllib.loads(text), schema), [fault])

    def test_editors_are_offered_the_names(self):
        target = self.schema()["properties"]["target"]["properties"]
        self.assertIn("LS-Dyna", target["solver"]["anyOf"][0]["enum"])
        self.assertIn("deformed", target["mesh"]["anyOf"][0]["enum"])
        self.assertEqual(target["annealing"]["description"],
                         "Use the annealing-deformed mesh as the deformed mesh")


if __name__ == "__main__":
    unittest.main()
