"""Tests of an application on the simulated appliance, with pytest: the application is quillctl.

    PYTHONPATH=$(pkg-config --variable=testing quillkit) pytest test_panel.py
"""
pytest_plugins = ["quillbox_pytest"]

KEYS = ["quillctl", "--password", "quill", "key"]


def test_several_processes_use_one_appliance(quillbox):
    quillbox.use("begin empty")
    for name in "Scan", "Copy":
        assert quillbox.run(*KEYS, "add", name).returncode == 0
    assert 'book 512 "Copy"' in quillbox.dump()
    assert len([call for call in quillbox.calls() if call["entryPoint"] == "IMSPCreateEntry"]) == 2


def test_reports_a_lost_session(quillbox):
    quillbox.use("clock simulated step 30000", "fault IMSPSizeofAB after 60000 session lost")
    done = quillbox.run(*KEYS, "list", "--json")
    assert done.returncode != 0
    assert "code 10" in done.stderr
