-- The one row by which the schema is told from others.
INSERT INTO __version (Major, Minor, SchemaDate, schemaNotes) VALUES (1, 0, '2019-03-04', 'Old schema');
