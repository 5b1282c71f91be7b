-- One setting a row.
CREATE TABLE settings(
    key TEXT PRIMARY KEY,
    value TEXT);

-- The objects of every data name, in their order.
CREATE TABLE objects(
    data_name TEXT NOT NULL,
    uid INTEGER NOT NULL,
    parent_uid INTEGER NOT NULL DEFAULT 0,
    type TEXT NOT NULL,
    name TEXT NOT NULL,
    granted INTEGER NOT NULL DEFAULT 1,
    PRIMARY KEY(data_name, uid));
