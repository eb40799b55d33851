-- The one row by which the schema is told from others.
INSERT INTO __version (Major, Minor, SchemaDate, schemaNotes) VALUES (1, 1, '2026-11-16', 'Current schema');
