SELECT Company_Name FROM infPersonalDetails;
SELECT * FROM lstFrequencies;
SELECT * FROM infOptions;
SELECT * FROM Employees ORDER BY Employee_Name;
SELECT Employee_ID, Employee_Name FROM Employees ORDER BY Employee_ID;
SELECT Employee_ID, Employee_Name FROM Employees;
INSERT INTO Diary (Status) VALUES ('V');
SELECT Suburb_Name, Position FROM Suburb_Position ORDER BY Position;
SELECT DISTINCT Clients.Suburb, Suburb_Position.Suburb_Name FROM Clients LEFT JOIN Suburb_Position ON Clients.Suburb = Suburb_Position.Suburb_Name WHERE Isnull(Suburb_position.Suburb_Name ) OR Suburb_position.Suburb_Name = '';
SELECT MAX(Position) + 1 FROM Suburb_Position
SELECT * FROM General_Ledger_Accounts WHERE GL_Account_Type = 'Revenue';
SELECT * FROM lstFrequencies ORDER BY Frequency_Days;
INSERT INTO lstFrequencies (Frequency_Days) VALUES (0);
SELECT * FROM Divisions ORDER BY Division_Name;
SELECT Distinct WorkCoverLabel FROM Clients Order by WorkCoverLabel;
SELECT Client_ID, Display_Name FROM Clients ORDER BY Display_Name;
SELECT Service_ID, Service FROM Services ORDER BY Service;
SELECT Frequency_Days FROM lstFrequencies;
SELECT Employee_ID, Employee_Name FROM Employees ORDER BY Employee_Name;
SELECT DISTINCT Suburb, Post_Code FROM Clients ORDER BY Suburb;
INSERT INTO Clients (Display_Name, First_Name, Surname) VALUES (' New client', ' New client', ' New client');
SELECT DISTINCT Suburb, Post_Code FROM Clients ORDER BY Suburb
SELECT Invoice_Notes FROM infOptions;
INSERT INTO Clients (Status) VALUES ('Quote only');
SELECT MAX(Client_ID) FROM Clients;
SELECT MAX(Quote_Service_ID) FROM Quote_Services
SELECT Service_ID, Service_Code, Service FROM Services ORDER BY Service;
SELECT MAX(Diary_Service_ID) FROM Diary_Services
SELECT Max(Invoice_ID) FROM Invoices;
SELECT Invoice_Number FROM infSystem
SELECT Client_ID, Display_Name FROM Clients WHERE Is_Billed_To = Yes
DELETE FROM lstInvoicesToPrint;
SELECT Invoice_Notes FROM Invoices ORDER BY Invoice_Notes;
DELETE FROM lstInvoicesToPrint
SELECT * FROM Clients WHERE Status in ('Active', 'Billing address') AND Is_Billed_To = Yes and (Statement_Type = 'Monthly') ORDER BY Display_Name;
SELECT MAX(Invoice_ID) FROM Invoices;
SELECT Max(Payment_ID) FROM Payments;
SELECT Client_ID, Display_Name FROM Clients
SELECT Max(GL_Entry_ID) FROM General_Ledger_Entries;
SELECT Client_ID FROM Clients WHERE Is_Billed_To = True
SELECT Client_ID, Status, Display_Name, Phone_1, Account_Balance, Statement_Type FROM Clients WHERE Account_Balance < 0 AND NOT(Account_Balance IS NULL) AND Is_Billed_To = Yes
SELECT Max(Purchase_ID) FROM Purchases;
INSERT INTO Purchases (Description) VALUES ('...New purchase');
INSERT INTO Suppliers (Supplier_Name) VALUES ('..New Supplier');
SELECT * FROM Countries ORDER BY Country_Name;
SELECT MAX(Banking_ID) FROM Bankings;
SELECT Banking_ID, Bank_Account_ID, Banking_Date, Cash_Banked, Total_Banked, Cash_Unbanked FROM Bankings ORDER BY Banking_Date DESC;
SELECT Purchase_ID, Cheque_Number, Supplier_Name, Purchase_Date, Amount FROM Purchases INNER JOIN Suppliers ON Purchases.Supplier_ID = Suppliers.Supplier_ID WHERE UCase(Payment_Method) = 'CHEQUE' AND Cheque_Reconciled = 0 ORDER BY Purchase_Date;
SELECT MAX(Ending_Date) FROM Budget_Periods;
SELECT MAX(Budget_Period_ID) FROM Budget_Periods;
SELECT GL_Account_ID, GL_Account_Name, Budget_Amount FROM General_Ledger_Accounts;
SELECT * FROM Budget_Periods;
SELECT * FROM infPersonalDetails LEFT JOIN Countries ON infPersonalDetails.Country_ID = Countries.Country_ID ;
SELECT DISTINCT(Invoice_ID) FROM lstInvoicesToPrint;
SELECT Invoices.Client_ID, Invoices.Made_Out_To, Invoices.Invoice_Number, Invoices.Generation_Date, Invoices.Invoice_Description, Invoices.Total_Amount, Invoices.Total_GST, Clients.InvoiceWithUnpaidPastJobs, Clients.StatementWithPayments  FROM (lstInvoicesToPrint INNER JOIN Invoices ON lstInvoicesToPrint.Invoice_ID = Invoices.Invoice_ID) INNER JOIN Clients ON Invoices.Client_ID = Clients.Client_ID  ORDER BY Invoices.Client_ID, Invoices.Generation_Date;
SELECT Invoices.Client_ID, Invoices.Made_Out_To, Invoices.Invoice_Number, Invoices.Generation_Date, Invoices.Invoice_Description, Invoices.Total_Amount, Invoices.Total_GST  FROM lstInvoicesToPrint INNER JOIN Invoices ON lstInvoicesToPrint.Invoice_ID = Invoices.Invoice_ID  ORDER BY Invoices.Client_ID, Invoices.Generation_Date;
SELECT Clients.Suburb, Clients.Post_Code, Clients.Display_Name, Clients.Status,  Clients.Street_Number, Clients.Street, Clients.Phone_1, Clients.Phone_2, Services.Service, Client_Services.Price FROM (Clients LEFT JOIN Client_Services ON Clients.Client_ID = Client_Services.Client_ID) LEFT JOIN Services ON Client_Services.Service_ID = Services.Service_ID ORDER BY Clients.Status, Clients.Display_Name;
SELECT Suburb, Post_Code, Display_Name, Status, Street_Number, Street, Suburb, Post_Code, Phone_1, Phone_2, Account_Balance FROM Clients  WHERE UCASE(Status) = 'BAD DEBTOR' ORDER BY Display_Name;
SELECT FSE_Code from infPersonalDetails
UPDATE infOptions SET DatabaseUploaded = True;
DELETE FROM Services;
SELECT MAX(Service_ID) FROM Services;
DELETE FROM Clients
DELETE FROM Client_Services
SELECT TOP 1 Employee_ID FROM Employees
SELECT Backup_Description FROM infSystem;
DELETE FROM Bankings;
DELETE FROM Bank_Accounts;
DELETE FROM Diary;
DELETE FROM Diary_Services;
DELETE FROM General_Ledger_Entries;
DELETE FROM Invoices;
DELETE FROM Invoice_Items;
DELETE FROM Payments;
DELETE FROM Purchases;
DELETE FROM Quotes;
DELETE FROM Quote_Services;
SELECT GST_Percentage, Accounting_Method, Days_To_Advance_Schedule, EnableLogging, EnableOstrel4WebServices, CompactDatabaseBeforeUpload, AdobePath,CCEMailAddress,RecalculateClientAmtsOwingOnPrint, Default_Email_Message FROM infOptions
SELECT MAX(Employee_ID) FROM Employees;
UPDATE infSystem SET Database_Version = 0
DELETE * FROM Clients
DELETE * FROM Client_Services
INSERT INTO infPersonalDetails (FSE_Code) VALUES (null)
INSERT INTO infOptions (GST_Percentage) VALUES (.1)
INSERT INTO infSystem (Done_Initial_Setup) VALUES (No);
SELECT * FROM invoices WHERE Invoice_ID = 17
INSERT INTO Diary (Client_ID) VALUES (17);
INSERT INTO Diary_Services (Diary_ID, Service_ID, Price, GST) VALUES(17, 17, 17, 12.5);
DELETE FROM Diary_Services WHERE Diary_Service_ID = 17
SELECT * FROM Diary WHERE Client_ID = 17
INSERT INTO Holiday (Hol_Date, Hol_Year, Hol_Recurring, Hol_Description) VALUES (#2026/11/2#, 1, 1, 'O''Brien');
DELETE FROM Holiday WHERE Hol_ID = 17
INSERT INTO Services (Service, Service_Code, Default_GL_Account_ID, Regular, Default) VALUES (1, 1, 17, 1, 1);
SELECT Client_ID, Display_Name, First_Name, Surname FROM Clients WHERE Billing_Client_ID = 17
SELECT * FROM ((Client_Services cs  LEFT JOIN Services s ON cs.Service_ID = s.Service_ID)  LEFT JOIN Employees e ON cs.Employee_ID = e.Employee_ID)  WHERE Client_ID = 17
INSERT INTO Client_Services(Client_ID) VALUES (17);
SELECT Count(*) FROM Client_Services WHERE Other_Schedule_Client_Service_ID = 17
DELETE FROM Client_Services WHERE Client_Service_ID = 17
INSERT INTO Clients (Display_Name, Status, First_Name, Surname, Street_Number, Street, Suburb, Post_Code, Phone_1, Phone_2, Email, Fax, Notes, Statement_Type) VALUES ('O''Brien', 'O''Brien', 'O''Brien', 'O''Brien', 'O''Brien', 1, 1, 1, 1, 1, 1, 1, 'O''Brien', 1);
UPDATE Clients SET Billing_Client_ID = Client_ID WHERE Client_ID = 17
DELETE FROM Clients WHERE Client_ID = 17
DELETE FROM Client_Services WHERE Client_ID = 17
SELECT Payment_ID FROM Payments WHERE Client_ID = 17
DELETE FROM General_Ledger_Entries WHERE Payment_ID = 17
SELECT * FROM Clients WHERE Client_ID = 17
SELECT Quote_Service_ID, Service, Quote_Services.Service_ID, Price, Quote_Services.[Notes] FROM Quote_Services INNER JOIN Services ON Quote_Services.Service_ID = Services.Service_ID WHERE Quote_ID = 17
UPDATE Clients SET Status = 'Active' WHERE Client_ID = 17
SELECT * FROM Quote_Services WHERE Quote_ID = 17
INSERT INTO Client_Services (Client_ID, Service_ID, Price, Frequency, Status, Next_Visit, Notes) VALUES (17, 17, 17, 17, 'O''Brien', #2026/11/2#, 'O''Brien');
INSERT INTO Diary_Services (Diary_ID, Service_ID, Price, GST) VALUES (17, 17, 17, 12.5);
SELECT * FROM Invoices WHERE Invoice_ID = 17
INSERT INTO Invoices (Generation_Date) VALUES (#2026/11/2#);
UPDATE Diary SET Invoice_ID = NULL WHERE Diary_ID = 17
DELETE FROM Invoices WHERE Invoice_ID = 17
DELETE FROM Invoice_Items WHERE Invoice_ID = 17
UPDATE Diary SET Invoice_ID = NULL WHERE Invoice_ID = 17
INSERT INTO Invoices (Client_ID, Made_Out_To, Done_For, From_Date, To_Date, Generation_Date, Invoice_Description, Total_Amount, Total_GST, Balance_Carried_Across, Statement_Type, Invoice_Number) VALUES (17, 1, 1, #2026/11/2#, #2026/11/2#, #2026/11/2#, 'O''Brien', 12.5, 12.5, 1, 1, 'O''Brien');
UPDATE Invoices SET Total_Amount = 12.5 , Total_GST = 12.5 WHERE Invoice_ID = 17
INSERT INTO lstInvoicesToPrint (Invoice_ID) VALUES(17);
UPDATE infOptions SET Monthly_Invoices_Reminder = 1
SELECT * FROM Diary WHERE Left(Status,1) = 'J'  AND Schedule_Date BETWEEN #2026/11/2# AND #2026/11/2 23:59:0# AND Client_ID = 17 ORDER BY Schedule_Date DESC;
SELECT Count(Diary_Service_ID) FROM Diary_Services WHERE Diary_ID = 17
SELECT Billing_Client_ID FROM Clients WHERE Client_ID = 17
SELECT * FROM Payments WHERE Payment_ID = 17
SELECT * FROM Payments WHERE Client_ID = 17 AND Amount <> 0 ORDER BY Payment_Date DESC;
INSERT INTO Payments (Client_ID) VALUES (17);
UPDATE Invoices SET IsPaid = 1 WHERE Invoice_ID = 17
INSERT INTO General_Ledger_Entries (Payment_ID) VALUES (17);
DELETE FROM General_Ledger_Entries WHERE GL_Entry_ID = 17
DELETE FROM Payments WHERE Payment_ID = 17
SELECT Status, Billing_Client_ID FROM Clients WHERE Client_ID = 17
SELECT SUM(Total_Price) AS TotalPrice FROM Diary WHERE Client_ID = 17
SELECT SUM(Amount) AS TotalAmount FROM Payments WHERE Client_ID = 17
SELECT SUM(Amount) AS TotalAmount FROM Payments INNER JOIN Clients ON Payments.Client_ID = Clients.Client_ID WHERE Billing_Client_ID = 17
UPDATE Clients SET Account_Balance = 0 WHERE Client_ID = 17
SELECT Account_Balance, Debtor_Since FROM Clients WHERE Client_ID = 17
UPDATE Clients SET Debtor_Since = NULL Where Client_ID = 17
INSERT INTO General_Ledger_Accounts (GL_Account_Name, GL_Account_Number, GL_Account_Type) VALUES ('O''Brien', 'O''Brien', 1);
UPDATE General_Ledger_Accounts SET GL_Account_Name = 'O''Brien' , GL_Account_Number = 'O''Brien' WHERE GL_Account_ID = 17
DELETE FROM General_Ledger_Accounts WHERE GL_Account_ID = 17
SELECT DISTINCT Description FROM Purchases WHERE Supplier_ID = 17 ORDER BY Description;
SELECT GL_Account_ID, Payment_Type FROM Suppliers WHERE Supplier_ID = 17
INSERT INTO General_Ledger_Entries (Purchase_ID) VALUES (17);
DELETE FROM Purchases WHERE Purchase_ID = 17
DELETE FROM General_Ledger_Entries WHERE Purchase_ID = 17
SELECT Purchase_ID, Description, Amount, Purchase_Date FROM Purchases WHERE Supplier_ID = 17 ORDER BY Purchase_Date DESC;
DELETE FROM Suppliers WHERE Supplier_ID = 17
SELECT SUM(Total_Price) FROM Diary WHERE Schedule_Date BETWEEN #2026/11/2# AND #2026/11/2 23:59:0# AND Status IN ('JD', 'JU', 'JP', 'JI' );
INSERT INTO Bankings (Bank_Account_ID, Banking_Date, Cash_Banked, Cash_UnBanked, Total_Banked ) VALUES (17, #2026/11/2#, 12.5, 12.5, 12.5);
UPDATE Payments SET Banking_ID = NULL WHERE Payment_ID = 17
UPDATE Payments SET Banking_ID = NULL WHERE Banking_ID = 17
DELETE FROM Bankings WHERE Banking_ID = 17
UPDATE Purchases SET Cheque_Reconciled = 1 WHERE Purchase_ID = 17
INSERT INTO Bank_Accounts (Bank_Account_Name, Bank_Account_Number) VALUES ('O''Brien', 'O''Brien');
DELETE FROM Bank_Accounts WHERE Bank_Account_ID = 17
INSERT INTO lstBanks (Bank) VALUES ('O''Brien');
DELETE FROM lstBanks WHERE Bank_ID = 17
INSERT INTO Budget_Periods (Starting_Date, Ending_Date) VALUES (#2026/11/2#, #2026/11/2#);
INSERT INTO Budgets (Budget_Period_ID, GL_Account_ID, Budget_Amount, Actual) VALUES (17, 17, 12.5, 12.5);
SELECT Budget_ID FROM Budgets WHERE GL_Account_ID = 17
UPDATE General_Ledger_Entries SET Budget_ID = 17 WHERE GL_Entry_ID = 17
SELECT * FROM Budgets WHERE Budget_Period_ID = 17
SELECT Sum(GL_Amount) FROM General_Ledger_Entries WHERE Budget_ID = 17
UPDATE Budgets SET Actual = 12.5 WHERE Budget_ID = 17
SELECT * FROM Diary WHERE Schedule_date >= #2026/11/2# AND Schedule_date <= #2026/11/2#
DELETE FROM Payments WHERE Payment_Date >= #2026/11/2# AND Payment_Date <= #2026/11/2#
DELETE FROM Purchases WHERE Purchase_date >= #2026/11/2# AND Purchase_date <= #2026/11/2#
DELETE FROM Invoices WHERE From_Date >= #2026/11/2# AND To_Date <= #2026/11/2#
DELETE FROM Invoice_Items WHERE Item_date >= #2026/11/2# AND Item_date <= #2026/11/2#
DELETE FROM Bankings WHERE Banking_date >= #2026/11/2# AND Banking_date <= #2026/11/2#
UPDATE Diary SET Total_Price = 0 , Total_GST = 0 WHERE Diary_ID = 17
INSERT INTO lstInvoicesToPrint (Invoice_ID) VALUES (17);
SELECT Diary.Client_ID, Diary.Schedule_Date, Services.Service, Diary_Services.Price, Diary_Services.GST, (SELECT MIN(Schedule_Date) FROM Diary as Diary2 WHERE Diary.Client_ID = Diary2.Client_ID AND Diary2.Schedule_Date > Diary.Schedule_Date AND Diary2.Status = 'J') AS Next_Visit, Clients.Display_Name, Clients.Street_Number, Clients.Street, Clients.Suburb, Clients.Post_Code, Clients.Work_Cover_Number, Clients.WorkCoverLabel  FROM Clients RIGHT JOIN ((Diary INNER JOIN Diary_Services ON Diary.Diary_ID = Diary_Services.Diary_ID) INNER JOIN Services ON Diary_Services.Service_ID = Services.Service_ID) ON Clients.Client_ID = Diary.Client_ID  WHERE Invoice_ID = 17
SELECT Clients_1.Client_ID, Clients_1.Display_Name, Clients_1.Display_Name, Clients_1.Street_Number, Clients_1.Street, Clients_1.Suburb, Clients_1.Post_Code, Diary.Schedule_Date, Services.Service, Diary_Services.Price, Diary_Services.GST, Invoices.Invoice_Number  FROM ((Clients INNER JOIN ((Clients AS Clients_1 INNER JOIN Diary ON Clients_1.Client_ID = Diary.Client_ID) INNER JOIN Diary_Services ON Diary.Diary_ID = Diary_Services.Diary_ID) ON Clients.Client_ID = Clients_1.Billing_Client_ID) LEFT JOIN Services ON Diary_Services.Service_ID = Services.Service_ID) LEFT JOIN Invoices ON Diary.Invoice_ID = Invoices.Invoice_ID  WHERE (Isnull(Diary.Payment_ID) OR Diary.Payment_ID = 0) AND Diary.Status IN ('JD','JU','JP', 'JI') AND Clients.Client_ID = 17
SELECT * FROM Payments  WHERE Client_ID = 17
SELECT Clients.Display_Name, Clients.Street_Number, Clients.Street, Clients.Suburb, Clients.Post_Code FROM Clients  WHERE Client_ID = 17
SELECT * FROM Bankings INNER JOIN Bank_Accounts ON Bankings.Bank_Account_ID = Bank_Accounts.Bank_Account_ID  WHERE Banking_ID = 17
SELECT * FROM Payments WHERE UCASE(Payment_Method) = 'CHEQUE' AND Banking_ID = 17
SELECT Sum(Amount) FROM Payments WHERE Payment_Date BETWEEN #2026/11/2# AND #2026/11/30 23:59:0#
SELECT Sum(GST_Included) FROM Payments WHERE Payment_Date BETWEEN #2026/11/2# AND #2026/11/30 23:59:0#
SELECT SUM(Total_Price) FROM Diary WHERE Schedule_Date BETWEEN #2026/11/2# AND #2026/11/30 23:59:0#
SELECT SUM(Total_GST) FROM Diary WHERE Schedule_Date BETWEEN #2026/11/2# AND #2026/11/30 23:59:0#
SELECT SUM(Amount) FROM Payments WHERE Payment_Date BETWEEN #2026/11/2# AND #2026/11/30 23:59:0#
SELECT sum(GST_Included) FROM Payments WHERE Payment_Date BETWEEN #2026/11/2# AND #2026/11/30 23:59:0#
SELECT sum(Amount) FROM Purchases WHERE GST_Included <> 0 and Purchase_Date BETWEEN #2026/11/2# AND #2026/11/30 23:59:0#
SELECT sum(Amount) FROM Purchases WHERE GST_Included = 0 and Purchase_Date BETWEEN #2026/11/2# AND #2026/11/30 23:59:0#
SELECT sum(GST_Included) FROM Purchases WHERE GST_Included <> 0 and Purchase_Date BETWEEN #2026/11/2# AND #2026/11/30 23:59:0#
SELECT Schedule_Date, Display_Name, Street_Number, Street, Suburb, Post_Code, Phone_1, Diary.Status, Diary.Description, Diary.Total_Price FROM Clients INNER JOIN Diary ON Clients.Client_ID = Diary.Client_ID WHERE Schedule_Date >= #2026/11/2#
SELECT Display_Name FROM Clients INNER JOIN Diary ON Clients.Client_ID = Diary.Client_ID WHERE Diary.Invoice_ID = 17
UPDATE infOptions SET GST_Percentage = 12.5
UPDATE infOptions SET EnableLogging = 1
INSERT INTO Employees (Employee_Name) VALUES ('O''Brien');
DELETE FROM Employees WHERE Employee_ID = 17
INSERT INTO Client_Services (Client_ID, Service_ID, Employee_ID, Status, Price, Frequency, Next_Visit, Estimated_Time, Preferred_Day, Preferred_Time, Notes) VALUES (17, 17, 17, 'O''Brien', 17, 17, #2026/11/2#, 1, 1, 1, 'O''Brien');
SELECT Diary_ID, SUM(GST) as G FROM Diary_Services WHERE Diary_ID = 17 GROUP By Diary_ID;
UPDATE Diary_Services set GST =  ((Price/110) * 10) WHERE Diary_ID = 17;
UPDATE Diary_Services SET GST = Price * (0.1 / (1 + 0.1)) WHERE Diary_ID = 17
INSERT INTO lstPayment_Methods (Payment_Method, Sequence) VALUES ('CASH', 4)
SELECT Diary.Sequence, Diary.Diary_ID, Diary.Employee_ID, Diary.Status, Diary.Payment_ID, Clients.Client_ID, Clients.Billing_Client_ID, Clients.First_Name, Clients.Display_Name, Clients.Status, Diary.Description, Diary.Total_Price, Diary.Invoice_ID FROM ((Clients INNER JOIN Diary ON Clients.Client_ID = Diary.Client_ID) LEFT JOIN Diary_Services ON Diary.Diary_ID = Diary_Services.Diary_ID) LEFT JOIN Suburb_Position ON Clients.Suburb = Suburb_Position.Suburb_Name WHERE  Schedule_Date BETWEEN #2026/11/2 0:0:0# AND #2026/11/2 23:59:00#  AND Diary.Employee_ID = -1  ORDER BY Suburb_Position.Position , Diary.Sequence;
SELECT Diary.Diary_ID FROM (Clients INNER JOIN Diary ON Clients.Client_ID = Diary.Client_ID) LEFT JOIN Diary_Services ON Diary.Diary_ID = Diary_Services.Diary_ID WHERE Schedule_Date >= #2026/11/2# AND Schedule_Date <= #2026/11/2 23:59:00# AND LEFT(Diary.Status, 1) = 'J'  ORDER BY Diary.Schedule_Date, Diary.Diary_ID DESC;
SELECT Diary.Diary_ID FROM Clients, Diary WHERE Clients.Client_ID = Diary.Client_ID ORDER BY Diary.Employee_ID, Suburb, Diary.Schedule_Date, Diary.Sequence, Clients.Street, Diary.Client_ID
SELECT Clients_1.Display_Name, Diary.* FROM (Clients INNER JOIN Clients AS Clients_1 ON Clients.Client_ID = Clients_1.Billing_Client_ID) INNER JOIN Diary ON Clients_1.Client_ID = Diary.Client_ID  WHERE Schedule_Date BETWEEN #2026/11/1# AND #2026/11/30 23:59:00# AND Diary.Status IN ('J', 'JU', 'JP', 'JD', 'JI')  AND Clients.Client_ID = 17 ORDER BY Clients_1.Display_Name, Schedule_Date;
SELECT 'Name' AS Display_Name, Diary.Diary_ID, Schedule_Date, Description, Total_Price FROM Diary WHERE Client_ID = 17 AND Diary.Status NOT IN ('JD', 'JP', 'JU', 'JC', 'VD', 'VC', 'JI') AND Schedule_Date >= #2026/11/2# ORDER BY Diary.Schedule_Date;
SELECT Clients_1.Display_Name, Diary_ID FROM (Clients INNER JOIN Clients AS Clients_1 ON Clients.Client_ID = Clients_1.Billing_Client_ID) INNER JOIN Diary ON Clients_1.Client_ID = Diary.Client_ID WHERE Clients.Client_ID = 17 AND (Schedule_Date < #2026/11/2# OR Diary.Status IN ('JD', 'JU', 'JP', 'JI')) ORDER BY Diary.Schedule_Date DESC;
SELECT Clients.Client_ID, Clients.Display_Name, Clients_1.Account_Balance FROM Clients LEFT JOIN Clients AS Clients_1 ON Clients.Billing_Client_ID = Clients_1.Client_ID ORDER BY Clients.Display_Name, Clients.Surname, Clients.First_Name;
SELECT Client_ID, Status, Display_Name, First_Name, Surname, Clients.Street_Number, Clients.Street, Clients.Suburb, Clients.Post_Code, Clients.Phone_1, Clients.Phone_2, Clients.Fax, Clients.Email FROM (Clients) WHERE LEFT(Clients.Status, 1) <> 'Q' ORDER BY Clients.Display_Name, Clients.Surname, Clients.First_name;
SELECT Client_ID FROM (Clients) WHERE UCASE(Clients.Status) = 'BAD DEBTOR' ORDER BY Clients.Display_Name, Clients.Surname, Clients.First_name;
SELECT Client_ID, Display_Name FROM Clients WHERE Is_Billed_To = Yes AND (Client_ID <> 17) AND (Client_ID = Billing_Client_ID) ORDER BY Display_Name;
SELECT Client_ID, Display_Name FROM Clients WHERE Is_Billed_To = Yes AND Status IN ('Active', 'Billing address') ORDER BY Display_Name;
SELECT Clients.Display_Name, Invoices.* FROM Invoices LEFT JOIN Clients ON Invoices.Client_ID = Clients.Client_ID WHERE Invoices.Statement_Type <> 'Statement' AND Generation_Date BETWEEN #2026/11/1# AND #2026/11/30 23:59:00# ORDER BY Generation_Date DESC, Display_Name;
SELECT Count(Diary_ID) FROM Clients INNER JOIN Diary ON Clients.Client_ID = Diary.Client_ID WHERE Isnull(Diary.Invoice_ID) AND Clients.Client_ID = 17
SELECT Diary.* FROM Clients INNER JOIN Diary ON Clients.Client_ID = Diary.Client_ID WHERE Clients.Billing_Client_ID = 17 AND Schedule_Date BETWEEN #2026/11/1# AND #2026/11/30 23:59:00#
SELECT Diary.Diary_ID, Diary.Invoice_ID, Diary.Schedule_Date, Diary.Total_Price, Diary.Total_GST, Clients_1.*  FROM (Clients INNER JOIN Diary ON Clients.Client_ID = Diary.Client_ID) INNER JOIN Clients AS Clients_1 ON Clients.Billing_Client_ID = Clients_1.Client_ID  WHERE Clients_1.Status In ('Active','Billing address') AND Clients_1.Is_Billed_To = Yes  AND Clients_1.Statement_Type = 'With Job' AND (Diary.Schedule_Date BETWEEN #2026/11/1# AND #2026/11/30 23:59:00#) ORDER BY Clients_1.Display_Name;
UPDATE infSystem SET Last_Monthly_Invoice_Ending = #2026/11/30#
UPDATE Clients SET InvoiceWithOutstanding = True, InvoiceWithNextJob = False, InvoiceWithUnpaidPastJobs = 1 WHERE Client_ID = 17
SELECT Diary.Diary_ID, Service, Schedule_Date, Diary_Services.Price, GL_Account_Name, Invoice_Number FROM (((Diary LEFT JOIN Diary_Services ON Diary.Diary_ID = Diary_Services.Diary_ID) LEFT JOIN Services ON Diary_Services.Service_ID = Services.Service_ID) LEFT JOIN General_Ledger_Accounts ON Services.Default_GL_Account_ID = General_Ledger_Accounts.GL_Account_ID) LEFT JOIN Invoices ON Diary.Invoice_ID = Invoices.Invoice_ID WHERE Diary.Payment_ID = 17 ORDER BY Diary.Diary_ID, Services.Service;
SELECT Diary.Diary_ID, Invoice_Number, Display_Name, Diary.Payment_ID FROM ((Payments INNER JOIN Clients ON Clients.Billing_Client_ID = Payments.Client_ID) INNER JOIN Diary ON Diary.Client_ID = Clients.Client_ID) LEFT JOIN Invoices ON Diary.Invoice_ID = Invoices.Invoice_ID WHERE Payments.Payment_ID = 17 AND Diary.Status IN ('J', 'JP', 'JU', 'JD', 'JI') ORDER BY IIf(Diary.Payment_ID <> 17 OR Diary.Payment_ID IS NULL, 0, 1) DESC, Schedule_Date DESC;
SELECT Payments.Payment_ID, Display_Name, (SELECT SUM(Diary_Services.Price) FROM Diary INNER JOIN Diary_Services ON Diary.Diary_ID = Diary_Services.Diary_ID WHERE Diary.Payment_ID = Payments.Payment_ID) AS GL_Amount FROM Payments LEFT JOIN Clients ON Payments.Client_ID = Clients.Client_ID WHERE Payment_Date BETWEEN #2026/11/1# AND #2026/11/30 23:59:00# ORDER BY Display_Name, Payment_Date DESC;
SELECT TOP 1 Diary.Schedule_Date FROM ((Clients INNER JOIN Clients AS Clients_1 ON Clients.Client_ID = Clients_1.Billing_Client_ID) INNER JOIN Diary ON Clients_1.Client_ID = Diary.Client_ID) LEFT JOIN Invoices ON Diary.Invoice_ID = Invoices.Invoice_ID WHERE Clients.Client_ID = 17 AND Diary.Schedule_Date < #2026/11/2 14:7:9# AND Diary.Status = 'JD' AND Diary.Payment_ID IS NULL ORDER BY Diary.Schedule_Date;
SELECT Client_ID, Status, Display_Name, Phone_1, Account_Balance, Statement_Type FROM Clients WHERE Account_Balance < 0 AND NOT(Account_Balance IS NULL) AND Is_Billed_To = Yes AND Status = 'Active' ORDER BY Display_Name;
SELECT Banking_ID, Payment_ID, Payment_Date, Display_Name, Amount, Cheque_Number, Payments.Bank, Payments.Bank_Branch, Payments.Bank_Account_Name FROM Payments LEFT JOIN Clients ON Payments.Client_ID = Clients.Client_ID WHERE UCASE(Payment_Method) = 'CHEQUE' AND (Payments.Banking_ID NOT IN (SELECT Banking_ID FROM Bankings) OR Banking_ID IS NULL)  ORDER BY Payment_Date DESC,Clients.Display_Name;
UPDATE Payments SET Banking_ID = 17 WHERE Payment_ID IN (1, 2, 3)
SELECT * FROM General_Ledger_Entries WHERE Entry_Date BETWEEN #2026/7/1# AND #2027/6/30#
SELECT Payments.Payment_ID, Payments.Payment_Date, Services.Default_GL_Account_ID, Diary_Services.Price FROM (((Payments LEFT JOIN General_Ledger_Entries ON Payments.Payment_ID = General_Ledger_Entries.Payment_ID) INNER JOIN Diary ON Payments.Payment_ID = Diary.Payment_ID) INNER JOIN Diary_Services ON Diary.Diary_ID = Diary_Services.Diary_ID) INNER JOIN Services ON Diary_Services.Service_ID = Services.Service_ID WHERE IsNull(General_Ledger_Entries.Purchase_ID)
INSERT INTO General_Ledger_Entries (Entry_Date, Payment_ID, GL_Account_ID, GL_Amount) VALUES (#2026/11/2#, 17, 3, 12.5)
INSERT INTO General_Ledger_Entries (Entry_Date, Payment_ID, GL_Account_ID, GL_Amount) SELECT Payment_Date, Payment_ID, 3, Amount FROM Payments WHERE Payment_ID = 17
SELECT Invoices.Invoice_ID, Invoices.Generation_Date, Invoices.From_Date, Invoices.To_Date, Invoices.Invoice_Description, Invoices.Statement_Type, Invoices.Done_For, Invoices.Made_Out_To, Invoices.Invoice_Number, Invoices.Invoice_Notes,  Clients.Client_ID, Clients.Billing_Client_ID, Clients.Display_Name, Clients.Street_Number, Clients.Street, Clients.Suburb, Clients.Post_Code, Clients.Phone_1, Clients.Phone_2, Clients.Work_Cover_Number, Clients.WorkCoverLabel,  Clients.InvoiceWithOutstanding, Clients.InvoiceWithNextJob, Clients.InvoiceWithUnpaidPastJobs, Clients.StatementWithPayments, Clients.InvoiceWithTelNo, Clients.Account_Balance  FROM Invoices INNER JOIN Clients ON Invoices.Client_ID = Clients.Client_ID  WHERE Invoices.Invoice_ID = 17
SELECT Diary.Client_ID, Diary.Schedule_Date, Services.Service, Diary_Services.Price, Diary_Services.GST, (SELECT MIN(Schedule_Date) FROM Diary as Diary2 WHERE Diary.Client_ID = Diary2.Client_ID AND Diary2.Schedule_Date > Diary.Schedule_Date AND Diary2.Status = 'J') AS Next_Visit, Clients.Display_Name, Clients.Street_Number, Clients.Street, Clients.Suburb, Clients.Post_Code, Clients.Work_Cover_Number, Clients.WorkCoverLabel  FROM Clients RIGHT JOIN ((Diary INNER JOIN Diary_Services ON Diary.Diary_ID = Diary_Services.Diary_ID) INNER JOIN Services ON Diary_Services.Service_ID = Services.Service_ID) ON Clients.Client_ID = Diary.Client_ID  WHERE Invoice_ID = 17 ORDER By Diary.Client_ID, Schedule_Date, Service;
SELECT Clients_1.Client_ID, Clients_1.Display_Name, Clients_1.Display_Name, Clients_1.Street_Number, Clients_1.Street, Clients_1.Suburb, Clients_1.Post_Code, Diary.Schedule_Date, Services.Service, Diary_Services.Price, Diary_Services.GST, Invoices.Invoice_Number  FROM ((Clients INNER JOIN ((Clients AS Clients_1 INNER JOIN Diary ON Clients_1.Client_ID = Diary.Client_ID) INNER JOIN Diary_Services ON Diary.Diary_ID = Diary_Services.Diary_ID) ON Clients.Client_ID = Clients_1.Billing_Client_ID) LEFT JOIN Services ON Diary_Services.Service_ID = Services.Service_ID) LEFT JOIN Invoices ON Diary.Invoice_ID = Invoices.Invoice_ID  WHERE (Isnull(Diary.Payment_ID) OR Diary.Payment_ID = 0) AND Diary.Status IN ('JD','JU','JP', 'JI') AND Clients.Client_ID = 17 AND (Isnull(Diary.Invoice_ID) OR (Diary.Invoice_ID <> 3))  ORDER By Diary.Client_ID, Invoices.Invoice_Number, Diary.Schedule_Date, Service;
SELECT * FROM Payments WHERE  ((Banking_ID = 17) AND (UCASE(Payment_Method) = 'VISA' OR UCASE(Payment_Method) IN ('MASTER', 'CREDIT')))
SELECT Diary.Schedule_Date, Count(Diary_ID) AS CountOfDiary_ID, Sum(Diary.Total_Price) AS SumOfTotal_Price FROM Clients INNER JOIN Diary ON Clients.Client_ID = Diary.Client_ID  WHERE Diary.Status IN ('JD', 'JU', 'JP', 'J', 'JI')  GROUP BY Diary.Schedule_Date ORDER BY Diary.Schedule_Date;
SELECT Quotes.Description, Quote_Services.Price, Services.Service FROM (Quotes LEFT JOIN Quote_Services ON Quotes.Quote_ID = Quote_Services.Quote_ID) LEFT JOIN Services ON Quote_Services.Service_ID = Services.Service_ID  WHERE Quotes.Quote_ID = 17 ORDER BY Services.Service;
SELECT Clients.Status, (SELECT MIN(Schedule_Date) FROM Diary as Diary2 WHERE Diary.Client_ID = Diary2.Client_ID AND Diary2.Schedule_Date > Diary.Schedule_Date AND Diary2.Status = 'J') AS Next_Visit, (SELECT MAX(Schedule_Date) FROM Diary as Diary2 WHERE Diary.Client_ID = Diary2.Client_ID AND Diary2.Schedule_Date < Diary.Schedule_Date AND Diary2.Status <> 'J') AS Last_Visit  FROM ((Diary INNER JOIN Clients ON Diary.Client_ID = Clients.Client_ID) LEFT JOIN Employees ON Diary.Employee_ID = Employees.Employee_ID) LEFT JOIN Diary_Services ON Diary.Diary_ID = Diary_Services.Diary_ID WHERE Diary.Status IN ('V', 'VD', 'JD', 'JU', 'JP', 'J', 'JI') AND Diary.Schedule_Date BETWEEN #2026/11/2# AND #2026/11/2 23:59:00# ORDER BY Diary.Employee_ID
SELECT General_Ledger_Accounts.GL_Account_Number, General_Ledger_Accounts.GL_Account_Name, General_Ledger_Accounts.GL_Account_Type, Sum(Diary_Services.Price) AS Amount FROM (((Payments INNER JOIN Diary ON Payments.Payment_ID = Diary.Payment_ID) INNER JOIN Diary_Services ON Diary.Diary_ID = Diary_Services.Diary_ID) INNER JOIN Services ON Diary_Services.Service_ID = Services.Service_ID) LEFT JOIN General_Ledger_Accounts ON Services.Default_GL_Account_ID = General_Ledger_Accounts.GL_Account_ID WHERE Payment_Date BETWEEN #2026/11/1# AND #2026/11/30 23:59:00# GROUP BY General_Ledger_Accounts.GL_Account_Number, General_Ledger_Accounts.GL_Account_Name, General_Ledger_Accounts.GL_Account_Type  ORDER BY General_Ledger_Accounts.GL_Account_Type DESC, General_Ledger_Accounts.GL_Account_Name;
SELECT General_Ledger_Accounts.GL_Account_Name, Sum(GL_Amount) FROM General_Ledger_Entries LEFT JOIN General_Ledger_Accounts ON General_Ledger_Entries.GL_Account_ID = General_Ledger_Accounts.GL_Account_ID WHERE Not IsNull(Purchase_ID)  AND Entry_Date BETWEEN #2026/11/1# AND #2026/11/30 23:59:00# GROUP BY  General_Ledger_Accounts.GL_Account_Name, General_Ledger_Accounts.GL_Account_Number  ORDER BY General_Ledger_Accounts.GL_Account_Number;
SELECT Cheque_Number, Supplier_Name, Purchase_Date, Amount FROM Purchases LEFT JOIN Suppliers ON Purchases.Supplier_ID = Suppliers.Supplier_ID WHERE (((Purchases.Payment_Method)='Cheque') AND ((Purchases.Cheque_Reconciled)=False)) ORDER BY Purchases.Purchase_Date;
SELECT Purchases.Description FROM Purchases WHERE Purchases.Capital = True ORDER BY Purchases.Description;
SELECT Display_Name, Debtor_Since FROM Clients WHERE  Account_Balance < 0 AND Account_Balance IS NOT NULL AND Status = 'Active' ORDER BY Account_Balance DESC
SELECT Clients.Suburb, Clients.Post_Code, Clients.Display_Name, Clients.Status,  Clients.Street_Number, Clients.Street, Clients.Phone_1, Clients.Phone_2, Services.Service, Client_Services.Price FROM (Clients LEFT JOIN Client_Services ON Clients.Client_ID = Client_Services.Client_ID) LEFT JOIN Services ON Client_Services.Service_ID = Services.Service_ID WHERE UCASE(Client_Services.Status) = 'REGULAR' AND UCASE(Clients.Status) = 'ACTIVE' ORDER BY Clients.Suburb , Clients.Post_Code, Clients.Display_Name;
SELECT Diary.Schedule_Date,Services.Service, Diary_Services.Price, Diary_Services.GST FROM (Diary INNER JOIN Diary_Services ON Diary.Diary_ID = Diary_Services.Diary_ID) INNER JOIN Services ON Diary_Services.Service_ID = Services.Service_ID WHERE Schedule_Date >= #2026/11/1# AND Schedule_Date <= #2026/11/30 23:59:00# ORDER BY Diary.Schedule_Date, Services.Service;
UPDATE infSystem SET Backup_Description = 'Automatic backup before restoration 2/11/2026.';
UPDATE infPersonalDetails SET Company_Name = 'O''Brien', ACN = null, FSE_Code = '12', Division_ID = 3
UPDATE Purchases SET Supplier_ID = null, Amount = '$1,234.50', GST_Included = 12.5, Cheque_Reconciled = 0, Tax_Exempt = 1, Depreciation = 12.5 WHERE Purchase_ID = 17
UPDATE Payments SET Payment_Date = #2026/11/2#, Amount = 110, Payment_Method = UCase('cash'), Tax_Exempt = 0 WHERE Payment_ID = 17
INSERT INTO Services (Service, Service_Code, Default_GL_Account_ID, Sequence_Number, Regular) Values('Mowing', 'M', null, null, 1)
UPDATE infSystem SET Invoice_Number = 18
