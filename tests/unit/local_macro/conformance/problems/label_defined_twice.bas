' A label is defined once in a procedure.
'? 5:1 Ambiguous name detected: Here
Sub main()
Here:
Here:
End Sub
