INSERT INTO "Code" ("CodeKey", "Code1", "Code2", "Description", "Deleted") VALUES
(1, 1, 0, 'Foreman', 0),
(2, 1, 0, 'Carpenter', 0),
(3, 1, 0, 'Drywall Hanger', 0),
(4, 1, 0, 'Electrician', 0),
(5, 1, 0, 'Finisher', 0),
(6, 1, 0, 'Framer', 0),
(7, 1, 0, 'Helper', 0),
(8, 1, 0, 'Laborer', 0),
(9, 1, 0, 'Painter', 0),
(10, 1, 0, 'Plumber', 0),
(11, 4, 0, 'Bay Window', 0),
(12, 4, 0, 'Ceiling Fan', 0),
(13, 4, 0, 'Covered Patio', 0),
(14, 4, 0, 'Extra Coat', 0),
(15, 4, 0, 'Fireplace', 0),
(16, 4, 0, 'Laundry Sink', 0),
(17, 4, 0, 'Rounded Corners', 0),
(18, 4, 0, 'Three Car Garage', 0),
(19, 4, 0, 'Vaulted Ceiling', 0)
GO
INSERT INTO "ReportDefinition" ("reportDefinitionKey", "Name", "objectName", "multiSelect", "reportType", "pEntryDate", "pForeman", "pSSN", "pDetailLevel", "summaryOnly", "groupBy", "category") VALUES
(1, 'Gantt Chart', 'frmRptGantt', 0, 1, -1, -1, 0, 0, 0, 0, -1),
(2, 'Lot Budget', 'frmRptLotBudget', -1, 1, 0, -1, 0, -1, -1, 0, 0),
(3, 'Lot Options', 'frmRptLotOptions', -1, 1, 0, -1, 0, -1, -1, 0, 0),
(4, 'Employee Paid-out', 'frmRptEmployeePaidout', -1, 2, -1, 0, -1, 0, -1, 0, 0),
(5, 'Calendar by Day', 'frmRptCalendar', -1, 1, -1, -1, 0, 0, 0, -1, -1),
(6, 'Calendar by Week', 'frmRptCalendar', -1, 1, -1, -1, 0, 0, 0, -1, -1),
(7, 'Employee Corrections', 'frmRptEmployeeCorrections', -1, 2, -1, 0, -1, 0, 0, 0, 0)
GO
